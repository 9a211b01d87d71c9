// The times of alarms, as calendar files write them.
// SPDX-License-Identifier: MIT
#include <array>
#include <cstdlib>
#include <utility>

#include <fmt/format.h>

#include <exchange/calendar/AlarmTimes.h>
#include <exchange/lines/Stamps.h>
#include <platform/time/TimeZone.h>

namespace orvo {
namespace {

constexpr std::int64_t kDay = 24L * 60 * 60;
constexpr std::int64_t kWeek = 7 * kDay;
constexpr std::int64_t kLongest = 36600 * kDay;

struct Unit {
    char letter;
    std::int64_t seconds;
};
constexpr std::array<Unit, 2> kDayUnits{{{'W', kWeek}, {'D', kDay}}};
constexpr std::array<Unit, 3> kClockUnits{{{'H', 3600}, {'M', 60}, {'S', 1}}};

std::int64_t SecondsOf(char letter, bool isOfClock) {
    for (const Unit& unit : kDayUnits) {
        if (!isOfClock && unit.letter == letter) return unit.seconds;
    }
    for (const Unit& unit : kClockUnits) {
        if (isOfClock && unit.letter == letter) return unit.seconds;
    }
    return 0;
}

// Takes "15M" from the text.
// Returns:  nothing where it doesn't begin so.
std::optional<std::int64_t> TakePart(std::string_view& text, bool isOfClock) {
    std::int64_t number = 0;
    std::size_t size = 0;
    for (; size < text.size() && text[size] >= '0' && text[size] <= '9'; ++size) {
        number = number * 10 + (text[size] - '0');
        if (number > kLongest) return std::nullopt;
    }
    if (size == 0 || size == text.size()) return std::nullopt;
    const std::int64_t unit = SecondsOf(static_cast<char>(text[size] & ~0x20), isOfClock);
    if (unit == 0 || number > kLongest / unit) return std::nullopt;
    text.remove_prefix(size + 1);
    return number * unit;
}

std::string FormatLength(std::int64_t seconds) {
    std::string text = seconds < 0 ? "-P" : "P";
    std::int64_t rest = std::abs(seconds);
    if (rest > 0 && rest % kWeek == 0) return text + fmt::format("{}W", rest / kWeek);
    if (rest >= kDay) text += fmt::format("{}D", rest / kDay);
    rest %= kDay;
    if (rest == 0 && seconds != 0) return text;
    text += 'T';
    for (const Unit& unit : kClockUnits) {
        if (rest >= unit.seconds) text += fmt::format("{}{}", rest / unit.seconds, unit.letter);
        rest %= unit.seconds;
    }
    return seconds == 0 ? text + "0S" : text;
}

}  // namespace

std::optional<std::int64_t> ReadLength(std::string_view text) {
    text = Trimmed(text);
    const bool isBefore = text.starts_with('-');
    if (isBefore || text.starts_with('+')) text.remove_prefix(1);
    if (!text.starts_with('P') && !text.starts_with('p')) return std::nullopt;
    text.remove_prefix(1);
    if (text.empty()) return std::nullopt;
    std::int64_t seconds = 0;
    bool isOfClock = false;
    while (!text.empty()) {
        if (!isOfClock && (text.front() | 0x20) == 't') {
            isOfClock = true;
            text.remove_prefix(1);
        }
        const std::optional<std::int64_t> part = TakePart(text, isOfClock);
        if (!part || seconds + *part > kLongest) return std::nullopt;
        seconds += *part;
    }
    return isBefore ? -seconds : seconds;
}

std::optional<ReminderTime> ReadTrigger(const ContentLine& line, CalendarClock& clock) {
    if (const std::optional<std::int64_t> length = ReadLength(line.value)) {
        const bool isOfEnd =
            EqualsIgnoringCase(Trimmed(FindParameter(line.parameters, "RELATED")), "END");
        return ReminderTime{isOfEnd ? ReminderTime::From::Due : ReminderTime::From::Start,
                            -*length};
    }
    const std::optional<CalendarDate> date = clock.Read(line);
    if (!date || date->form == CalendarDate::Form::Day) return std::nullopt;
    return ReminderTime{ReminderTime::From::Moment, date->moment};
}

std::string FormatTrigger(const ReminderTime& time) {
    switch (time.from) {
        case ReminderTime::From::Due:
            return "TRIGGER;RELATED=END:" + FormatLength(-time.seconds);
        case ReminderTime::From::Start:
            return "TRIGGER;RELATED=START:" + FormatLength(-time.seconds);
        case ReminderTime::From::Moment:
            break;
    }
    return "TRIGGER;VALUE=DATE-TIME:" + FormatStamp(time.seconds * 1000);
}

std::optional<std::int64_t> MomentOf(const ReminderTime& time, const ReminderDates& dates) {
    if (time.from == ReminderTime::From::Moment) return time.seconds;
    const bool isOfStart = time.from == ReminderTime::From::Start && dates.start;
    const std::optional<std::int64_t>& date = isOfStart ? dates.start : dates.due;
    if (!date) return std::nullopt;
    const std::optional<CivilTime> civil = CivilOfMoment(*date);
    if (!civil || time.seconds % kDay != 0) return *date - time.seconds;
    // A day over which the clocks are set has another length.
    const CivilTime day =
        CivilOfDays(DaysOfCivil(civil->year, civil->month, civil->day) - time.seconds / kDay);
    return MomentOfCivil({day.year, day.month, day.day, civil->hour, civil->minute, civil->second});
}

std::int64_t BeginOf(const CalendarDate& date) {
    const std::optional<CivilTime> civil = CivilOfMoment(date.moment);
    if (date.form != CalendarDate::Form::Day || !civil) return date.moment;
    return MomentOfCivil({civil->year, civil->month, civil->day});
}

}  // namespace orvo
