// How days of people that come back each year read, in the language of the user.
// SPDX-License-Identifier: MIT
#include <QDate>
#include <QLocale>
#include <QRegularExpression>

#include <desktop/details/DayTexts.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {

QString DateText(const PersonDate& date) {
    // A year that holds every day stands in for one that isn't told.
    constexpr int anyYear = 2000;
    const QDate day(date.year == 0 ? anyYear : date.year, date.month, date.day);
    QString format = QLocale().dateFormat(QLocale::LongFormat);
    static const QRegularExpression weekday(R"(dddd[,،]?\s*)");
    static const QRegularExpression year(R"([\s,./-]*('de'\s+)?y+年?[\s.]*)");
    format.remove(weekday);
    if (date.year == 0) format.remove(year);
    return QLocale().toString(day, format);
}

QString SoonText(const PersonDate& date, std::chrono::sys_days today) {
    const auto days = (NextDay(date, today) - today).count();
    if (days == 0) return Text("today");
    if (days == 1) return Text("tomorrow");
    return CountText("in %1 day", "in %1 days", days);
}

QString OccasionText(const YearlyDay& day, std::chrono::sys_days today) {
    const int years = YearsAtNextDay(day.date, today).value_or(0);
    if (day.kind == DetailKind::Birthday) {
        return years == 0 ? Text("Birthday") : Text("turns %1").arg(QLocale().toString(years));
    }
    return years == 0 ? Text("Anniversary")
                      : CountText("Anniversary (%1 year)", "Anniversary (%1 years)", years);
}

QString DayText(const PersonDate& date, std::chrono::sys_days today) {
    const QString soon = SoonText(date, today);
    const std::optional<int> years = YearsAtNextDay(date, today);
    const QString when = years ? CountText("%1 year %2", "%1 years %2", *years).arg(soon) : soon;
    return QString("%1 (%2)").arg(DateText(date), when);
}

}  // namespace orvo::desktop
