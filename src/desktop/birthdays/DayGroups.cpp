// The headings under which days to come are listed.
// SPDX-License-Identifier: MIT
#include <QDate>
#include <QLocale>

#include <desktop/birthdays/DayGroups.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

constexpr int kDaysOfWeek = 7;

QDate DateOf(std::chrono::sys_days day) {
    const QDate epoch(1970, 1, 1);
    return epoch.addDays(day.time_since_epoch().count());
}

}  // namespace

QString HeadingOfDay(std::chrono::sys_days day, std::chrono::sys_days today) {
    if (day == today) return Text("Today");
    const QDate date = DateOf(day);
    const QDate now = DateOf(today);
    const int gone = (now.dayOfWeek() - QLocale().firstDayOfWeek() + kDaysOfWeek) % kDaysOfWeek;
    if (date < now.addDays(kDaysOfWeek - gone)) return Text("This week");
    QString month = QLocale().standaloneMonthName(date.month());
    month[0] = month[0].toUpper();
    if (date.year() == now.year()) return month;
    // A month and its year.
    return Text("%1 %2").arg(month).arg(date.year());
}

}  // namespace orvo::desktop
