// Recurrence rules of vCalendar and of iCalendar.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include <fmt/format.h>

#include <exchange/calendar/OldRule.h>
#include <exchange/calendar/RuleDates.h>
#include <exchange/calendar/WallTime.h>
#include <exchange/lines/ContentLine.h>

namespace orvo {
namespace {

// What a rule of vCalendar lists behind its unit and its interval.
enum class Items { None, Weekdays, Ordinals, MonthDays, Months, YearDays };

struct UnitRule {
    std::string_view oldName;
    std::string_view name;
    std::string_view part;
    Items items;
};
// Longer names first, as they begin with shorter ones.
constexpr std::array<UnitRule, 7> kUnits{{{"MP", "MONTHLY", "BYDAY", Items::Ordinals},
                                          {"MD", "MONTHLY", "BYMONTHDAY", Items::MonthDays},
                                          {"YM", "YEARLY", "BYMONTH", Items::Months},
                                          {"YD", "YEARLY", "BYYEARDAY", Items::YearDays},
                                          {"D", "DAILY", "", Items::None},
                                          {"W", "WEEKLY", "BYDAY", Items::Weekdays},
                                          {"M", "MINUTELY", "", Items::None}}};
constexpr std::array<std::string_view, 7> kWeekdays{"MO", "TU", "WE", "TH", "FR", "SA", "SU"};

bool IsWeekday(std::string_view text) {
    return std::any_of(kWeekdays.begin(), kWeekdays.end(),
                       [&](std::string_view day) { return EqualsIgnoringCase(day, text); });
}

std::optional<int> NumberOf(std::string_view text) {
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    return read.ec == std::errc() && read.ptr == end ? std::optional(number) : std::nullopt;
}

std::vector<std::string_view> WordsOf(std::string_view text, char divider) {
    std::vector<std::string_view> words;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(divider), text.size());
        if (end > 0) words.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return words;
}

// "2-" is the last but one, "2+" or "2" the second.
std::optional<int> PlaceOf(std::string_view word) {
    if (EqualsIgnoringCase(word, "LD")) return -1;
    const bool isFromEnd = word.ends_with('-');
    if (isFromEnd || word.ends_with('+')) word.remove_suffix(1);
    const std::optional<int> number = NumberOf(word);
    if (!number || *number < 1 || *number > 366) return std::nullopt;
    return isFromEnd ? -*number : *number;
}

std::string OldPlace(int place) {
    return fmt::format("{}{}", std::abs(place), place < 0 ? "-" : "+");
}

// Reads the words of a vCalendar rule behind the first one.
struct OldWords {
    std::string list;  // of the items, divided by commas
    int items = 0;
    int times = 2;  // what the format means where a rule doesn't tell
    std::string until;
    int ordinal = 0;

    bool Take(std::string_view word, Items kind) {
        if (word.starts_with('#')) {
            const std::optional<int> number = NumberOf(word.substr(1));
            times = number.value_or(times);
            return number && *number >= 0;
        }
        if (const auto end = ParseWallTime(word)) {
            until = FormatWallTime(*end);
            return true;
        }
        return TakeItem(word, kind);
    }

private:
    bool TakeItem(std::string_view word, Items kind) {
        if (kind == Items::None) return false;
        const bool isDay = IsWeekday(word);
        if (isDay && kind == Items::Weekdays) return Add(std::string(word));
        if (isDay) {
            return kind == Items::Ordinals && ordinal != 0 &&
                   Add(fmt::format("{}{}", ordinal, word));
        }
        const std::optional<int> place = PlaceOf(word);
        if (!place || kind == Items::Weekdays) return false;
        if (kind != Items::Ordinals) return Add(std::to_string(*place));
        ordinal = *place;
        return true;
    }

    bool Add(const std::string& item) {
        if (!list.empty()) list += ',';
        list += item;
        ++items;
        return true;
    }
};

const UnitRule* FindUnit(std::string_view frequency, std::string_view rule) {
    const auto isOf = [&](const UnitRule& unit) {
        return EqualsIgnoringCase(unit.name, frequency) &&
               (unit.part.empty() || !RulePart(rule, unit.part).empty());
    };
    const auto* const exact = std::find_if(kUnits.begin(), kUnits.end(), isOf);
    if (exact != kUnits.end()) return exact;
    // What lists nothing is as the start says.
    const auto* const plain = std::find_if(kUnits.begin(), kUnits.end(), [&](const UnitRule& unit) {
        return EqualsIgnoringCase(unit.name, frequency) && unit.items != Items::Ordinals;
    });
    return plain == kUnits.end() ? nullptr : plain;
}

std::optional<std::string> OldItem(std::string_view item, Items kind) {
    if (kind == Items::Weekdays) {
        return IsWeekday(item) ? std::optional(std::string(item)) : std::nullopt;
    }
    if (kind == Items::Ordinals) {
        if (item.size() < 3) return std::nullopt;
        const std::string_view day = item.substr(item.size() - 2);
        const std::optional<int> place = NumberOf(item.substr(0, item.size() - 2));
        if (!place || *place == 0 || !IsWeekday(day)) return std::nullopt;
        return fmt::format("{} {}", OldPlace(*place), day);
    }
    const std::optional<int> number = NumberOf(item);
    if (!number || *number == 0) return std::nullopt;
    const bool isPlain = kind == Items::Months || kind == Items::YearDays || *number > 0;
    return isPlain ? std::to_string(*number) : OldPlace(*number);
}

}  // namespace

std::optional<std::string> RuleOfOldRule(std::string_view oldRule) {
    const std::vector<std::string_view> words = WordsOf(Trimmed(oldRule), ' ');
    if (words.empty()) return std::nullopt;
    const auto* const unit = std::find_if(kUnits.begin(), kUnits.end(), [&](const UnitRule& rule) {
        return StartsIgnoringCase(words[0], rule.oldName);
    });
    if (unit == kUnits.end()) return std::nullopt;
    const std::optional<int> interval = NumberOf(words[0].substr(unit->oldName.size()));
    if (!interval || *interval < 1) return std::nullopt;
    OldWords read;
    for (std::size_t i = 1; i < words.size(); ++i) {
        if (!read.Take(words[i], unit->items)) return std::nullopt;
    }
    std::string rule = fmt::format("FREQ={}", unit->name);
    if (*interval > 1) rule += fmt::format(";INTERVAL={}", *interval);
    if (!read.until.empty()) {
        rule += ";UNTIL=" + read.until;
    } else if (read.times > 0) {
        // That many weeks, months or years.
        const std::int64_t items = std::max(read.items, 1);
        rule += fmt::format(";COUNT={}", read.times * items);
    }
    if (read.items > 0) rule += fmt::format(";{}={}", unit->part, read.list);
    return rule;
}

std::optional<std::string> OldRuleOfRule(std::string_view rule) {
    const UnitRule* const unit = FindUnit(Trimmed(RulePart(rule, "FREQ")), rule);
    if (!unit) return std::nullopt;
    ParameterWalk walk(rule);
    Parameter part;
    while (walk.Next(part)) {
        const bool isKnown =
            EqualsIgnoringCase(part.name, unit->part) || EqualsIgnoringCase(part.name, "WKST") ||
            EqualsIgnoringCase(part.name, "FREQ") || EqualsIgnoringCase(part.name, "INTERVAL") ||
            EqualsIgnoringCase(part.name, "COUNT") || EqualsIgnoringCase(part.name, "UNTIL");
        if (!isKnown) return std::nullopt;
    }
    const std::string_view interval = RulePart(rule, "INTERVAL");
    std::string old = fmt::format("{}{}", unit->oldName, interval.empty() ? "1" : interval);
    const std::vector<std::string_view> items = WordsOf(RulePart(rule, unit->part), ',');
    for (const std::string_view item : items) {
        const std::optional<std::string> word = OldItem(item, unit->items);
        if (!word) return std::nullopt;
        old += ' ' + *word;
    }
    const std::string_view until = RulePart(rule, "UNTIL");
    if (!until.empty()) return old.append(" ").append(until);
    const std::string_view count = RulePart(rule, "COUNT");
    if (count.empty()) return old + " #0";
    const std::optional<int> number = NumberOf(count);
    const auto size = static_cast<int>(std::max<std::size_t>(items.size(), 1));
    if (!number || *number % size != 0) return std::nullopt;
    return old + fmt::format(" #{}", *number / size);
}

}  // namespace orvo
