// A day of a person in a form, with or without its year.
// SPDX-License-Identifier: MIT
#include <QCalendarWidget>
#include <QDate>
#include <QHBoxLayout>
#include <QLocale>
#include <QRegularExpression>
#include <QScreen>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>

#include <desktop/forms/DayPicture.h>
#include <desktop/forms/PersonDateField.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

// A year that holds every day stands in for one that isn't told.
constexpr int kAnyYear = 2000;
constexpr qsizetype kYearDigits = 4;
constexpr int kDayWidth = 12;  // of a day with its year

QDate DayOf(std::chrono::sys_days day) {
    const std::chrono::year_month_day parts(day);
    return {static_cast<int>(parts.year()), static_cast<int>(unsigned{parts.month()}),
            static_cast<int>(unsigned{parts.day()})};
}

QString PictureWithoutYear() {
    static const QRegularExpression first(R"(^y+[\s./-]*)");
    static const QRegularExpression last(R"([\s/-]*y+)");
    return DayPicture().remove(first).remove(last);
}

bool Exists(const PersonDate& date) {
    return QDate::isValid(date.year == 0 ? kAnyYear : date.year, date.month, date.day);
}

// The numbers of the text; nothing where there is something else than what divides them.
std::optional<QStringList> NumbersOf(const QString& text) {
    static const QRegularExpression dividers(R"([\s.,/\-年月日]+)");
    QStringList numbers = text.split(dividers, Qt::SkipEmptyParts);
    for (QString& number : numbers) {
        for (QChar& digit : number) {
            if (digit.digitValue() < 0) return std::nullopt;
            digit = QChar('0' + digit.digitValue());
        }
    }
    return numbers;
}

// The number of the month that the text names, which is taken out of it; else 0.
int TakeMonth(QString& text) {
    static const QRegularExpression digit(R"(\d)");
    for (const auto form : {QLocale::LongFormat, QLocale::ShortFormat}) {
        for (int month = 1; month <= 12; ++month) {
            const QString name = QLocale().monthName(month, form);
            const qsizetype place = text.indexOf(name, 0, Qt::CaseInsensitive);
            if (name.contains(digit) || place < 0) continue;
            text.replace(place, name.size(), ' ');
            return month;
        }
    }
    return 0;
}

// The letters of `picture` say in which order day, month and year stand.
std::optional<PersonDate> Read(const QStringList& numbers, const QString& picture, int month) {
    PersonDate date;
    date.month = month;
    if (numbers.size() != picture.size()) return std::nullopt;
    for (qsizetype i = 0; i < picture.size(); ++i) {
        const bool isYear = picture[i] == 'y';
        if (isYear != (numbers[i].size() == kYearDigits)) return std::nullopt;
        int& part = isYear ? date.year : picture[i] == 'M' ? date.month : date.day;
        part = numbers[i].toInt();
        if (part == 0) return std::nullopt;
    }
    return Exists(date) ? std::optional(date) : std::nullopt;
}

// "dMy" or the like.
QString OrderOfParts(const QString& picture) {
    QString order;
    for (const QChar letter : picture) {
        if (QString("dMy").contains(letter) && !order.contains(letter)) order += letter;
    }
    return order;
}

// Where the user begins to choose: at the day, its next one where no year is told, or today.
QDate FirstChoice(const PersonDate& date) {
    if (!date.ComesBack()) return DayOf(Today());
    return date.year == 0 ? DayOf(NextDay(date, Today())) : QDate(date.year, date.month, date.day);
}

}  // namespace

QString ShownDate(const PersonDate& date) {
    if (!date.ComesBack()) return FromUtf8(FormatPersonDate(date));
    const QDate day(date.year == 0 ? kAnyYear : date.year, date.month, date.day);
    return QLocale().toString(day, date.year == 0 ? PictureWithoutYear() : DayPicture());
}

std::optional<PersonDate> ReadShownDate(const QString& text) {
    if (const auto date = ReadPersonDate(text.trimmed().toStdString())) return date;
    QString rest = text;
    const int month = TakeMonth(rest);
    const std::optional<QStringList> numbers = NumbersOf(rest);
    if (!numbers) return std::nullopt;
    const QString order = OrderOfParts(DayPicture());
    const QStringList pictures = month != 0 ? QStringList{"d", "dy", "yd"}
                                            : QStringList{order, "yMd", QString(order).remove('y')};
    for (const QString& picture : pictures) {
        if (const auto date = Read(*numbers, picture, month)) return date;
    }
    return std::nullopt;
}

PersonDateField::PersonDateField(const Detail& detail) {
    m_line.setText(detail.date ? ShownDate(*detail.date) : FromUtf8(detail.text));
    m_shown = m_line.text();
    m_line.setMinimumWidth(kDayWidth * m_line.fontMetrics().averageCharWidth());
    m_problem.setWordWrap(true);
    m_problem.hide();
    auto* calendar = new QToolButton;
    calendar->setArrowType(Qt::DownArrow);
    calendar->setAutoRaise(true);
    calendar->setToolTip(Text("Choose a day"));
    calendar->setAccessibleName(Text("Choose a day"));
    connect(calendar, &QToolButton::clicked, this, [this] { ShowCalendar(); });
    connect(&m_line, &QLineEdit::editingFinished, this, [this] { Check(); });
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* row = new QHBoxLayout;
    row->addWidget(&m_line);
    row->addWidget(calendar);
    column->addLayout(row);
    column->addWidget(&m_problem);
    setFocusProxy(&m_line);
}

bool PersonDateField::IsRight() const {
    return !IsChanged() || m_line.text().trimmed().isEmpty() || ReadShownDate(m_line.text());
}

void PersonDateField::PutInto(Detail& detail) const {
    if (!IsChanged()) return;
    detail.date = ReadShownDate(m_line.text());
    detail.text =
        detail.date ? FormatPersonDate(*detail.date) : m_line.text().trimmed().toStdString();
}

void PersonDateField::Check() {
    const PersonDate example{1985, 12, 31};
    const PersonDate withoutYear{0, 12, 31};
    const QString problem = IsRight()
                                ? QString()
                                : Text("No such day. Write it as %1, or as %2 without a year.")
                                      .arg(ShownDate(example), ShownDate(withoutYear));
    m_problem.setText(problem);
    m_problem.setVisible(!problem.isEmpty());
    m_line.setAccessibleDescription(problem);
}

void PersonDateField::ShowCalendar() {
    auto* calendar = new QCalendarWidget(this);
    calendar->setWindowFlag(Qt::Popup);
    calendar->setAttribute(Qt::WA_DeleteOnClose);
    const PersonDate present = ReadShownDate(m_line.text()).value_or(PersonDate());
    const bool hasYear = present.year != 0 || !present.ComesBack();
    calendar->setSelectedDate(FirstChoice(present));
    const auto take = [this, calendar, hasYear](QDate day) {
        m_line.setText(ShownDate({hasYear ? day.year() : 0, day.month(), day.day()}));
        Check();
        calendar->close();
    };
    connect(calendar, &QCalendarWidget::clicked, this, take);
    connect(calendar, &QCalendarWidget::activated, this, take);
    auto* escape = new QShortcut(Qt::Key_Escape, calendar);
    connect(escape, &QShortcut::activated, calendar, &QWidget::close);
    const QRect room = screen()->availableGeometry();
    const QPoint last =
        room.bottomRight() - QPoint(calendar->sizeHint().width(), calendar->sizeHint().height());
    const QPoint below = m_line.mapToGlobal(m_line.rect().bottomLeft());
    calendar->move(std::min(below.x(), last.x()), std::min(below.y(), last.y()));
    calendar->show();
    calendar->setFocus();
}

}  // namespace orvo::desktop
