// Recurrence rules as a form offers them.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <charconv>

#include <fmt/format.h>

#include <exchange/calendar/RepeatRule.h>
#include <exchange/lines/ContentLine.h>

namespace orvo {
namespace {

using Unit = RepeatRule::Unit;

constexpr std::array<std::string_view, 7> kWeekdays{"MO", "TU", "WE", "TH", "FR", "SA", "SU"};
constexpr std::array<std::string_view, 4> kUnits{"DAILY", "WEEKLY", "MONTHLY", "YEARLY"};
constexpr int kLongestInterval = 9999;

template <std::size_t kSize>
std::optional<int> PlaceIn(const std::array<std::string_view, kSize>& names,
                           std::string_view name) {
    const auto* const found = std::find_if(names.begin(), names.end(), [&](std::string_view n) {
        return EqualsIgnoringCase(n, name);
    });
    if (found == names.end()) return std::nullopt;
    return static_cast<int>(found - names.begin());
}

std::optional<std::int64_t> NumberOf(std::string_view text, std::int64_t least, std::int64_t most) {
    text = Trimmed(text);
    if (text.starts_with('+')) text.remove_prefix(1);
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    const bool isRead = read.ec == std::errc() && read.ptr == end;
    return isRead && number >= least && number <= most ? std::optional(number) : std::nullopt;
}

// Takes the parts of a rule one after the other; false for one that such a rule doesn't have.
struct Reader {
    RepeatRule rule{};
    bool hasUnit = false;
    std::vector<RepeatRule::Place> days{};  // of BYDAY; an ordinal of 0 stands for each
    std::vector<std::int64_t> positions{};

    bool Take(std::string_view name, std::string_view value) {
        if (EqualsIgnoringCase(name, "FREQ")) return TakeUnit(value);
        if (EqualsIgnoringCase(name, "BYDAY")) return TakeDays(value);
        if (EqualsIgnoringCase(name, "UNTIL")) {
            rule.until = ParseWallTime(value);
            return rule.until.has_value();
        }
        if (EqualsIgnoringCase(name, "WKST")) {
            rule.weekStart = value;
            return PlaceIn(kWeekdays, value).has_value();
        }
        if (EqualsIgnoringCase(name, "COUNT")) {
            rule.count = NumberOf(value, 1, INT64_MAX);
            return rule.count.has_value();
        }
        return TakeNumbers(name, value);
    }

    bool TakeUnit(std::string_view value) {
        const std::optional<int> unit = PlaceIn(kUnits, Trimmed(value));
        if (unit) rule.unit = static_cast<Unit>(*unit);
        hasUnit = unit.has_value();
        return hasUnit;
    }

    bool TakeNumbers(std::string_view name, std::string_view value) {
        std::string_view item;
        while (NextListItem(value, item)) {
            const bool isDay = EqualsIgnoringCase(name, "BYMONTHDAY");
            const bool isPosition = EqualsIgnoringCase(name, "BYSETPOS");
            const std::optional<std::int64_t> number = NumberOf(item, -5, kLongestInterval);
            if (!number) return false;
            const int small = static_cast<int>(*number);
            if (isPosition) {
                positions.push_back(small);
            } else if (isDay && (small == -1 || (small >= 1 && small <= 31))) {
                rule.monthDays.push_back(small);
            } else if (EqualsIgnoringCase(name, "INTERVAL") && small >= 1) {
                rule.interval = small;
            } else if (EqualsIgnoringCase(name, "BYMONTH") && rule.month == 0 && small >= 1 &&
                       small <= 12) {
                rule.month = small;
            } else {
                return false;
            }
        }
        return true;
    }

    bool TakeDays(std::string_view value) {
        std::string_view item;
        while (NextListItem(value, item)) {
            item = Trimmed(item);
            if (item.size() < 2) return false;
            const std::optional<int> day = PlaceIn(kWeekdays, item.substr(item.size() - 2));
            item.remove_suffix(2);
            const auto ordinal = item.empty() ? 0 : NumberOf(item, -5, 5);
            if (!day || !ordinal) return false;
            days.push_back({static_cast<int>(*ordinal), *day});
        }
        return true;
    }

    // Brings what can be said in several ways into one.
    bool Settle() {
        const bool hasEach =
            std::any_of(days.begin(), days.end(), [](const auto& day) { return day.ordinal == 0; });
        if (rule.unit == Unit::Day && !days.empty() && rule.interval == 1) rule.unit = Unit::Week;
        if (rule.unit == Unit::Day || rule.unit == Unit::Week) {
            for (const RepeatRule::Place& day : days) rule.weekdays.push_back(day.weekday);
            std::sort(rule.weekdays.begin(), rule.weekdays.end());
            const bool isPlain = rule.monthDays.empty() && rule.month == 0 && positions.empty();
            const bool hasOrdinals = std::any_of(days.begin(), days.end(),
                                                 [](const auto& day) { return day.ordinal != 0; });
            return isPlain && !hasOrdinals && (days.empty() || rule.unit == Unit::Week);
        }
        if (hasEach && days.size() == 1 && positions.size() == 1 && positions[0] != 0) {
            days[0].ordinal = static_cast<int>(positions[0]);
            if (days[0].ordinal > 5) return false;
            positions.clear();
        } else if (hasEach) {
            return false;
        }
        rule.places = days;
        const bool isPlain = positions.empty() && (days.empty() || rule.monthDays.empty());
        if (rule.unit == Unit::Month) return isPlain && rule.month == 0;
        const bool hasDay = !days.empty() || !rule.monthDays.empty();
        return isPlain && (rule.month != 0 || !hasDay) && rule.monthDays.size() <= 1;
    }
};

std::string Joined(const std::vector<std::string>& items) {
    return fmt::format("{}", fmt::join(items, ","));
}

}  // namespace

std::optional<RepeatRule> ReadRepeatRule(std::string_view rule) {
    Reader reader;
    ParameterWalk walk(rule);
    Parameter part;
    while (walk.Next(part)) {
        if (part.source.empty()) continue;
        if (!reader.Take(Trimmed(part.name), part.value)) return std::nullopt;
    }
    if (!reader.hasUnit || !reader.Settle()) return std::nullopt;
    return reader.rule;
}

std::string FormatRepeatRule(const RepeatRule& rule) {
    std::string text = fmt::format("FREQ={}", kUnits[static_cast<std::size_t>(rule.unit)]);
    if (rule.interval != 1) text += fmt::format(";INTERVAL={}", rule.interval);
    std::vector<std::string> days;
    for (const int day : rule.weekdays) days.emplace_back(kWeekdays[static_cast<std::size_t>(day)]);
    for (const RepeatRule::Place& place : rule.places) {
        days.push_back(
            fmt::format("{}{}", place.ordinal, kWeekdays[static_cast<std::size_t>(place.weekday)]));
    }
    if (rule.month != 0) text += fmt::format(";BYMONTH={}", rule.month);
    if (!rule.monthDays.empty()) {
        text += fmt::format(";BYMONTHDAY={}", fmt::join(rule.monthDays, ","));
    }
    if (!days.empty()) text += ";BYDAY=" + Joined(days);
    if (rule.count) text += fmt::format(";COUNT={}", *rule.count);
    if (rule.until) text += ";UNTIL=" + FormatWallTime(*rule.until);
    if (!rule.weekStart.empty()) text += ";WKST=" + rule.weekStart;
    return text;
}

int WeekdayOfDay(std::int64_t day) {
    constexpr int kThursday = 3;  // 1970-01-01
    return static_cast<int>((day % 7 + 7 + kThursday) % 7);
}

}  // namespace orvo
