// A day of a person in a form, with or without its year.
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QString>
#include <QWidget>
#include <optional>

#include <people/Person.h>

namespace orvo::desktop {

// As the user's country writes it with digits, and without the year where it isn't told.
QString ShownDate(const PersonDate& date);

// Reads what the user has written so, or with the name of the month, and the forms of cards.
// Returns:  nothing for any other text, and for a day that doesn't exist.
std::optional<PersonDate> ReadShownDate(const QString& text);

// A line for the day, with a calendar. What is no day is told below it.
class PersonDateField : public QWidget {
public:
    explicit PersonDateField(const Detail& detail);

    bool IsChanged() const { return m_line.text() != m_shown; }
    // True for a day, and for the text that was given, whatever that is.
    bool IsRight() const;
    // Sets the text and the day.
    void PutInto(Detail& detail) const;

    QLineEdit& Line() { return m_line; }
    const QLineEdit& Line() const { return m_line; }

    // Says what is wrong, where something is.
    void Check();

private:
    void ShowCalendar();

    QLineEdit m_line;
    QLabel m_problem;
    QString m_shown;
};

}  // namespace orvo::desktop
