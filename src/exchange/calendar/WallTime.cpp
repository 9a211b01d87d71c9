// Dates and times as calendars write them.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <charconv>

#include <fmt/format.h>

#include <exchange/calendar/WallTime.h>
#include <exchange/lines/ContentLine.h>
#include <platform/time/TimeZone.h>

namespace orvo {
namespace {

int Number(std::string_view digits) {
    int number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

}  // namespace

std::optional<WallTime> ParseWallTime(std::string_view text) {
    constexpr std::size_t kDaySize = 8;
    constexpr std::size_t kTimeSize = 15;
    std::string digits(Trimmed(text));
    std::erase_if(digits, [](char c) { return c == '-' || c == ':'; });
    WallTime time;
    if (digits.ends_with('Z') || digits.ends_with('z')) {
        time.form = WallTime::Form::Utc;
        digits.pop_back();
    } else if (digits.size() == kDaySize) {
        time.form = WallTime::Form::Day;
    }
    const bool isDay = time.form == WallTime::Form::Day;
    if (!isDay && (digits.size() != kTimeSize || (digits[kDaySize] | 0x20) != 't')) return {};
    if (!isDay) digits.erase(kDaySize, 1);
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (!std::all_of(digits.begin(), digits.end(), isDigit)) return {};
    if (isDay) digits += "000000";
    const std::string_view all = digits;
    const CivilTime civil{Number(all.substr(0, 4)),  Number(all.substr(4, 2)),
                          Number(all.substr(6, 2)),  Number(all.substr(8, 2)),
                          Number(all.substr(10, 2)), Number(all.substr(12, 2))};
    const std::int64_t days = DaysOfCivil(civil.year, civil.month, civil.day);
    const CivilTime day = CivilOfDays(days);
    const bool isThere = day.year == civil.year && day.month == civil.month &&
                         day.day == civil.day && civil.hour < 24 && civil.minute < 60 &&
                         civil.second <= 60;
    if (!isThere) return {};
    time.seconds = days * kSecondsOfDay + civil.hour * 3600 + civil.minute * 60 + civil.second;
    return time;
}

std::string FormatWallTime(const WallTime& time) {
    const std::int64_t days = DayOf(time.seconds);
    const CivilTime day = CivilOfDays(days);
    std::string text = fmt::format("{:04}{:02}{:02}", day.year, day.month, day.day);
    if (time.form == WallTime::Form::Day) return text;
    const std::int64_t rest = time.seconds - days * kSecondsOfDay;
    text += fmt::format("T{:02}{:02}{:02}", rest / 3600, rest / 60 % 60, rest % 60);
    if (time.form == WallTime::Form::Utc) text += 'Z';
    return text;
}

std::int64_t DayOf(WallSeconds seconds) {
    return (seconds >= 0 ? seconds : seconds - kSecondsOfDay + 1) / kSecondsOfDay;
}

}  // namespace orvo
