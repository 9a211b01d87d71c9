// Moving a date by whole days.
// SPDX-License-Identifier: MIT
#include <optional>

#include <contracts/Dates.h>
#include <contracts/TextServices.h>
#include <platform/time/TimeZone.h>

namespace orvo {
namespace {

bool IsDate(std::int64_t moment) {
    return moment >= 0 && moment < kMaxDate;
}

}  // namespace

int IncrDate(long& date, int days) {
    if (!IsDate(date)) return 0;
    const std::optional<CivilTime> before = CivilOfMoment(date);
    if (!before) return 0;

    CivilTime after = CivilOfDays(DaysOfCivil(before->year, before->month, before->day) + days);
    after.hour = before->hour;
    after.minute = before->minute;
    after.second = before->second;
    const std::int64_t moment = MomentOfCivil(after);
    if (!IsDate(moment)) return 0;
    date = moment;
    return 1;
}

}  // namespace orvo
