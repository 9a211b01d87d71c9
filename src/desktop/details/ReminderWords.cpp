// A reminder of a to-do in the user's words.
// SPDX-License-Identifier: MIT
#include <QDateTime>
#include <QLocale>
#include <cstdlib>

#include <desktop/details/ReminderWords.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 60 * kMinute;
constexpr std::int64_t kDay = 24 * kHour;
constexpr std::int64_t kWeek = 7 * kDay;

QString LengthText(std::int64_t seconds) {
    if (seconds % kWeek == 0) return CountText("%1 week", "%1 weeks", seconds / kWeek);
    if (seconds % kDay == 0) return CountText("%1 day", "%1 days", seconds / kDay);
    if (seconds % kHour == 0) return CountText("%1 hour", "%1 hours", seconds / kHour);
    if (seconds % kMinute == 0) return CountText("%1 minute", "%1 minutes", seconds / kMinute);
    return CountText("%1 second", "%1 seconds", seconds);
}

}  // namespace

QString ReminderWords(const ReminderTime& time) {
    if (time.from == ReminderTime::From::Moment) {
        return QLocale().toString(QDateTime::fromSecsSinceEpoch(time.seconds),
                                  QLocale::ShortFormat);
    }
    const bool isOfDue = time.from == ReminderTime::From::Due;
    if (time.seconds == 0) return isOfDue ? Text("when it is due") : Text("when it begins");
    const QString length = LengthText(std::abs(time.seconds));
    if (time.seconds > 0) {
        return (isOfDue ? Text("%1 before it is due") : Text("%1 before it begins")).arg(length);
    }
    return (isOfDue ? Text("%1 after it is due") : Text("%1 after it begins")).arg(length);
}

}  // namespace orvo::desktop
