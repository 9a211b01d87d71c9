// The fields of forms.
// SPDX-License-Identifier: MIT
#include <QScrollArea>
#include <QTimer>
#include <cmath>
#include <limits>

#include <desktop/forms/FormFields.h>
#include <desktop/texts/Texts.h>
#include <orvoshare/text/CategoryText.h>
#include <platform/qt/QtConvert.h>

namespace orvo::desktop {

LineField::LineField(std::string_view utf8) : m_given(utf8) {
    setMaxLength(std::numeric_limits<int>::max());
    setText(FromUtf8(utf8));
    setCursorPosition(0);
    m_shown = text();
}

std::string LineField::Utf8() const {
    return IsChanged() ? text().toStdString() : m_given;
}

void LineField::Give(std::string_view utf8, bool keepsMine) {
    const QString mine = text();
    m_given = utf8;
    setText(FromUtf8(utf8));
    setCursorPosition(0);
    m_shown = text();
    if (keepsMine) setText(mine);
}

TextField::TextField(std::string_view utf8, int lines) : m_given(utf8), m_lines(lines) {
    setTabChangesFocus(true);
    setPlainText(FromUtf8(utf8));
    m_shown = Shown();
}

// toPlainText would turn hard blanks into others.
QString TextField::Shown() const {
    QString text = document()->toRawText();
    text.replace(QChar::ParagraphSeparator, '\n');
    text.replace(QChar::LineSeparator, '\n');
    return text;
}

void TextField::Give(std::string_view utf8, bool keepsMine) {
    const QString mine = Shown();
    m_given = utf8;
    setPlainText(FromUtf8(utf8));
    m_shown = Shown();
    if (keepsMine) setPlainText(mine);
}

std::string TextField::Utf8() const {
    QString text = Shown();
    if (text == m_shown) return m_given;
    if (m_given.find("\r\n") != std::string::npos) text.replace('\n', QLatin1String("\r\n"));
    return text.toStdString();
}

QSize TextField::sizeHint() const {
    const int frame =
        2 * (frameWidth() + static_cast<int>(std::ceil(document()->documentMargin())));
    constexpr int kColumns = 42;
    return {fontMetrics().averageCharWidth() * kColumns,
            fontMetrics().lineSpacing() * m_lines + frame};
}

QSize TextField::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth(), sizeHint().height()};
}

ChoiceField::ChoiceField() {
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    constexpr int kCharacters = 14;
    setMinimumContentsLength(kCharacters);
}

void ChoiceField::Give(int number, const QString& textIfMissing) {
    if (findData(number) < 0) addItem(textIfMissing, number);
    setCurrentIndex(findData(number));
    m_given = number;
}

void ChoiceField::Give(int number, bool keepsMine) {
    const int mine = currentIndex();
    Give(number, TextOf(number));
    if (keepsMine) setCurrentIndex(mine);
}

// One that has no row is only known by its number.
QString ChoiceField::TextOf(int number) const {
    const int row = findData(number);
    return row < 0 ? QString::number(number) : itemText(row);
}

NumberField::NumberField(int given, int most, int step) : m_given(given) {
    setRange(0, most);
    setSingleStep(step);
    setValue(given);
}

void NumberField::Give(int given, bool keepsMine) {
    m_given = given;
    if (!keepsMine) setValue(given);
}

ChoiceField* MakeCategoryField(CBaseTable& table, const CBaseRecord& record) {
    auto* field = new ChoiceField;
    CCategoryMgr* categories = table.GetCategoryManager();
    CCategory* category = nullptr;
    for (categories->FindFirst(category); category; categories->FindNext(category)) {
        field->addItem(FromUtf8(category->ShownUtf8()), category->GetIndex());
    }
    int present = kNoCategory;
    record.GetCategoryId(present);
    field->Give(present, ToQt(CategoryText(table, record).View()));
    field->setObjectName("category");
    return field;
}

QString LinesOf(std::string_view utf8) {
    QString text = FromUtf8(utf8);
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return text.replace('\r', '\n');
}

QString MarkText(bool isSet) {
    return isSet ? Text("Yes") : Text("No");
}

QString PlainLabel(QString label) {
    label.remove('&');
    if (label.endsWith(':')) label.chop(1);
    return label;
}

QLabel* MakeLabel(const QString& text, QWidget& field) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(&field);
    return label;
}

QLabel* MakeSpokenLabel(const QString& text, QWidget& field) {
    QLabel* label = MakeLabel(text, field);
    label->hide();
    return label;
}

QFont MakeBold(QFont font) {
    font.setBold(true);
    return font;
}

void GoTo(QWidget& field) {
    field.setFocus(Qt::OtherFocusReason);
    // Where it is new, it has no place before the form is laid out again.
    auto* later = new QTimer(&field);
    later->setSingleShot(true);
    QObject::connect(later, &QTimer::timeout, later, [later, &field] {
        later->deleteLater();
        for (QWidget* outer = field.parentWidget(); outer; outer = outer->parentWidget()) {
            if (auto* scroll = qobject_cast<QScrollArea*>(outer)) {
                return scroll->ensureWidgetVisible(&field);
            }
        }
    });
    later->start(0);
}

QLabel* MakeHeading(const QString& text) {
    auto* label = new QLabel(text);
    label->setFont(MakeBold(label->font()));
    return label;
}

}  // namespace orvo::desktop
