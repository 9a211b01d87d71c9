// The fields of forms. Each knows what it was given, so that only what the user has changed goes
// back.
// SPDX-License-Identifier: MIT
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <string>
#include <string_view>

#include <contracts/RecordStore.h>
#include <desktop/forms/StillWheel.h>

namespace orvo::desktop {

// One line of text. Line breaks in it stay, and look like blanks.
class LineField : public QLineEdit {
public:
    explicit LineField(std::string_view utf8);

    bool IsChanged() const { return text() != m_shown; }
    // The bytes that were given where nothing was changed.
    std::string Utf8() const;

    // As if it had been made with that; its own text stays with `keepsMine`. So do the others.
    void Give(std::string_view utf8, bool keepsMine);

private:
    std::string m_given;
    QString m_shown;
};

// Text of many lines, at first `lines` high. Tab leaves it.
class TextField : public QPlainTextEdit {
public:
    TextField(std::string_view utf8, int lines);

    bool IsChanged() const { return Shown() != m_shown; }
    // The bytes that were given where nothing was changed; else its lines end as theirs did.
    std::string Utf8() const;

    // Its present text, with a line feed at each line's end.
    QString Shown() const;
    void Give(std::string_view utf8, bool keepsMine);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    std::string m_given;
    QString m_shown;
    int m_lines;
};

// A choice of a number, such as a category's index.
class ChoiceField : public StillWheel<QComboBox> {
public:
    ChoiceField();

    // Chooses the row of that number, which is added with that text where there is none, and counts
    // as unchanged from then on.
    void Give(int number, const QString& textIfMissing);
    void Give(int number, bool keepsMine);
    QString TextOf(int number) const;

    bool IsChanged() const { return Number() != m_given; }
    int Number() const { return currentData().toInt(); }

private:
    int m_given = 0;
};

// A number from 0 on.
class NumberField : public StillWheel<QSpinBox> {
public:
    NumberField(int given, int most, int step);

    bool IsChanged() const { return value() != m_given; }
    void Give(int given, bool keepsMine);

private:
    int m_given;
};

class MarkField : public QCheckBox {
public:
    MarkField(const QString& text, bool given) : QCheckBox(text), m_given(given) {
        setChecked(given);
    }
    bool IsChanged() const { return isChecked() != m_given; }
    void Give(bool given, bool keepsMine) {
        m_given = given;
        if (!keepsMine) setChecked(given);
    }

private:
    bool m_given;
};

// The categories of the table by index, with that one chosen.
ChoiceField* MakeCategoryField(CBaseTable& table, const CBaseRecord& record);

// The text of several lines as TextField::Shown gives it.
QString LinesOf(std::string_view utf8);
// "Yes" or "No".
QString MarkText(bool isSet);
// A label without its mnemonic and its colon.
QString PlainLabel(QString label);

// The label of a field, whose mnemonic leads there.
QLabel* MakeLabel(const QString& text, QWidget& field);

// Gives a box that has no label of its own a name for screen readers. Qt takes that of a combo box
// from its label alone, so that one which isn't seen stands beside the box.
QLabel* MakeSpokenLabel(const QString& text, QWidget& field);

QFont MakeBold(QFont font);

// Gives the field the focus, and scrolls its form so far that it is seen.
void GoTo(QWidget& field);

// A heading over a group of fields.
QLabel* MakeHeading(const QString& text);

}  // namespace orvo::desktop
