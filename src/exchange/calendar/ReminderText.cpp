// Reminders in plain English, as a command line has them.
// SPDX-License-Identifier: MIT
#include <array>
#include <charconv>
#include <cstdlib>
#include <sstream>
#include <vector>

#include <fmt/format.h>

#include <exchange/calendar/ReminderText.h>
#include <exchange/lines/ContentLine.h>
#include <platform/time/TimeZone.h>

namespace orvo {
namespace {

struct Unit {
    std::string_view name;  // of one
    std::int64_t seconds;
};
constexpr std::array<Unit, 5> kUnits{{{"week", 7L * 24 * 60 * 60},
                                      {"day", 24L * 60 * 60},
                                      {"hour", 60L * 60},
                                      {"minute", 60},
                                      {"second", 1}}};
constexpr std::int64_t kLongest = 36600L * 24 * 60 * 60;

const Unit* UnitOf(std::string_view word) {
    for (const Unit& unit : kUnits) {
        const bool isPlural = EqualsIgnoringCase(word, std::string(unit.name) + "s");
        const bool isShort = EqualsIgnoringCase(word, "mins") || EqualsIgnoringCase(word, "hrs");
        if (!word.empty() && (isPlural || StartsIgnoringCase(unit.name, word))) return &unit;
        if (isShort && StartsIgnoringCase(word, unit.name.substr(0, 1))) return &unit;
    }
    return nullptr;
}

// "due" or "start".
std::optional<ReminderTime::From> FromOf(std::string_view word) {
    if (EqualsIgnoringCase(word, "due")) return ReminderTime::From::Due;
    if (EqualsIgnoringCase(word, "start")) return ReminderTime::From::Start;
    return std::nullopt;
}

// Divides "15min" too.
std::vector<std::string> WordsOf(std::string_view text) {
    std::string spaced;
    for (const char c : text) {
        const bool isDigit = c >= '0' && c <= '9';
        const bool wasDigit = !spaced.empty() && spaced.back() >= '0' && spaced.back() <= '9';
        if (wasDigit && !isDigit) spaced += ' ';
        spaced += c;
    }
    std::istringstream stream(spaced);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

std::optional<ReminderTime> ReadMoment(std::string_view text) {
    constexpr std::size_t kToTheMinute = 16;
    constexpr std::size_t kDay = 10;
    std::string iso(text);
    if (iso.size() < kToTheMinute) return std::nullopt;
    if (iso[kDay] == ' ' || iso[kDay] == 't') iso[kDay] = 'T';
    if (iso.size() == kToTheMinute) iso += ":00";
    const std::optional<CivilTime> civil = ParseIso(iso);
    if (!civil) return std::nullopt;
    return ReminderTime{ReminderTime::From::Moment, MomentOfCivil(*civil)};
}

std::optional<ReminderTime> ReadLength(const std::vector<std::string>& words) {
    if (words.size() < 2 || words.size() > 4) return std::nullopt;
    std::int64_t number = 0;
    const char* end = words[0].data() + words[0].size();
    const auto [stop, error] = std::from_chars(words[0].data(), end, number);
    const Unit* unit = UnitOf(words[1]);
    if (error != std::errc() || stop != end || unit == nullptr || number < 0 ||
        number > kLongest / unit->seconds) {
        return std::nullopt;
    }
    ReminderTime time{ReminderTime::From::Due, number * unit->seconds};
    if (words.size() > 2) {
        const bool isAfter = EqualsIgnoringCase(words[2], "after");
        if (!isAfter && !EqualsIgnoringCase(words[2], "before")) return std::nullopt;
        if (isAfter) time.seconds = -time.seconds;
    }
    if (words.size() == 4) {
        const std::optional<ReminderTime::From> from = FromOf(words[3]);
        if (!from) return std::nullopt;
        time.from = *from;
    }
    return time;
}

}  // namespace

std::optional<ReminderTime> ReadReminder(std::string_view text) {
    text = Trimmed(text);
    if (const std::optional<ReminderTime> moment = ReadMoment(text)) return moment;
    const std::vector<std::string> words = WordsOf(text);
    if (words.size() == 2 && EqualsIgnoringCase(words[0], "at")) {
        const std::optional<ReminderTime::From> from = FromOf(words[1]);
        return from ? std::optional(ReminderTime{*from, 0}) : std::nullopt;
    }
    return ReadLength(words);
}

std::string FormatReminder(const ReminderTime& time) {
    if (time.from == ReminderTime::From::Moment) {
        constexpr std::size_t kToTheMinute = 16;
        std::string iso = FormatIso(CivilOfMoment(time.seconds).value_or(CivilTime{}));
        iso[iso.find('T')] = ' ';
        return iso.ends_with(":00") ? iso.substr(0, kToTheMinute) : iso;
    }
    const char* from = time.from == ReminderTime::From::Due ? "due" : "start";
    if (time.seconds == 0) return fmt::format("at {}", from);
    const std::int64_t length = std::abs(time.seconds);
    const Unit* unit = kUnits.data();
    while (length % unit->seconds != 0) ++unit;
    const std::int64_t number = length / unit->seconds;
    return fmt::format("{} {}{} {} {}", number, unit->name, number == 1 ? "" : "s",
                       time.seconds > 0 ? "before" : "after", from);
}

}  // namespace orvo
