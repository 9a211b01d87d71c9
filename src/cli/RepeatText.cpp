// How a to-do is to come again, as it stands on a command line.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include <fmt/format.h>

#include <cli/CommandError.h>
#include <cli/RepeatText.h>
#include <platform/time/TimeZone.h>

namespace orvo::cli {
namespace {

using Unit = RepeatRule::Unit;

constexpr std::array<std::string_view, 4> kPlain{"daily", "weekly", "monthly", "yearly"};
constexpr std::array<std::string_view, 4> kUnits{"day", "week", "month", "year"};
constexpr std::array<std::string_view, 7> kWeekdays{"monday", "tuesday",  "wednesday", "thursday",
                                                    "friday", "saturday", "sunday"};
constexpr std::array<std::string_view, 5> kOrdinals{"first", "second", "third", "fourth", "fifth"};

constexpr int kLongestInterval = 999;

// Walks over the words of the text, in which commas divide, too.
class Reader {
public:
    explicit Reader(const std::string& text) {
        std::string word;
        for (const char c : text + " ") {
            const bool divides = c == ' ' || c == '\t' || c == ',';
            if (!divides) word += static_cast<char>(c >= 'A' && c <= 'Z' ? c | 0x20 : c);
            if (!divides || word.empty()) continue;
            m_words.push_back(word);
            word.clear();
        }
    }

    std::optional<RepeatRule> Read() {
        if (m_words.size() == 1 && m_words[0] == "none") return std::nullopt;
        ReadUnit();
        while (m_next < m_words.size()) ReadRest();
        if (m_rule.count && m_rule.until) Refuse("\"until\" and \"times\" don't go together");
        return m_rule;
    }

private:
    [[noreturn]] static void Refuse(const std::string& what) {
        throw CommandError(
            kWrongUse,
            fmt::format(
                "--repeat: {}; understood is: none, daily, weekly [on mon,fri], "
                "monthly [on day 15 | on last fri | on 2nd tue], yearly, \"every 3 days\" "
                "(weeks, months, years), and behind it \"until 2027-06-30\" or \"10 times\"",
                what));
    }

    [[noreturn]] void RefuseWord() const {
        if (m_next >= m_words.size()) Refuse("something is missing at the end");
        Refuse(fmt::format("\"{}\" isn't understood here", m_words[m_next]));
    }

    std::string_view Word(std::size_t ahead = 0) const {
        return m_next + ahead < m_words.size() ? std::string_view(m_words[m_next + ahead])
                                               : std::string_view();
    }

    bool Take(std::string_view word) {
        if (Word() != word) return false;
        ++m_next;
        return true;
    }

    // "3", "3rd" or, in a place, "third".
    static std::optional<int> NumberOf(std::string_view word) {
        for (std::size_t i = 0; i < kOrdinals.size(); ++i) {
            if (word == kOrdinals[i]) return static_cast<int>(i) + 1;
        }
        int number = 0;
        const auto read = std::from_chars(word.data(), word.data() + word.size(), number);
        const std::string_view rest(read.ptr, static_cast<std::size_t>(word.end() - read.ptr));
        const bool isOrdinal = rest.empty() || rest == "." || rest == "st" || rest == "nd" ||
                               rest == "rd" || rest == "th";
        return read.ec == std::errc() && isOrdinal ? std::optional(number) : std::nullopt;
    }

    static std::optional<int> WeekdayOf(std::string_view word) {
        constexpr std::size_t kShortest = 2;
        for (std::size_t i = 0; i < kWeekdays.size(); ++i) {
            const bool isPlural = word == std::string(kWeekdays[i]) + 's';
            if ((word.size() >= kShortest && kWeekdays[i].starts_with(word)) || isPlural) {
                return static_cast<int>(i);
            }
        }
        return std::nullopt;
    }

    static std::optional<Unit> UnitOf(std::string_view word) {
        for (std::size_t i = 0; i < kUnits.size(); ++i) {
            if (word == kUnits[i] || word == std::string(kUnits[i]) + 's') {
                return static_cast<Unit>(i);
            }
        }
        return std::nullopt;
    }

    void ReadUnit() {
        for (std::size_t i = 0; i < kPlain.size(); ++i) {
            if (!Take(kPlain[i])) continue;
            m_rule.unit = static_cast<Unit>(i);
            return;
        }
        if (!Take("every")) RefuseWord();
        if (Take("other")) {
            m_rule.interval = 2;
        } else if (const std::optional<int> number = NumberOf(Word())) {
            if (*number < 1 || *number > kLongestInterval) RefuseWord();
            m_rule.interval = *number;
            ++m_next;
        }
        if (const std::optional<Unit> unit = UnitOf(Word())) {
            m_rule.unit = *unit;
            ++m_next;
        } else {
            m_rule.unit = Unit::Week;
            ReadWeekdays();
        }
    }

    void ReadRest() {
        if (Take("until")) {
            const std::optional<CivilTime> day = ParseIso(Word());
            if (!day || Word().find('t') != std::string_view::npos) RefuseWord();
            m_rule.until = WallTime{DaysOfCivil(day->year, day->month, day->day) * kSecondsOfDay,
                                    WallTime::Form::Day};
            ++m_next;
        } else if (Take("on")) {
            ReadPlace();
        } else if (Word(1) == "times" || Word(1) == "time") {
            const std::optional<int> number = NumberOf(Word());
            if (!number || *number < 1) RefuseWord();
            m_rule.count = *number;
            m_next += 2;
        } else if (Take("once")) {
            m_rule.count = 1;
        } else {
            RefuseWord();
        }
    }

    void ReadWeekdays() {
        const std::size_t first = m_next;
        while (const std::optional<int> day = WeekdayOf(Word())) {
            m_rule.weekdays.push_back(*day);
            ++m_next;
            Take("and");
        }
        if (m_next == first) RefuseWord();
        std::sort(m_rule.weekdays.begin(), m_rule.weekdays.end());
        const auto end = std::unique(m_rule.weekdays.begin(), m_rule.weekdays.end());
        m_rule.weekdays.erase(end, m_rule.weekdays.end());
    }

    void ReadPlace() {
        if (m_rule.unit == Unit::Week) return ReadWeekdays();
        if (m_rule.unit != Unit::Month) {
            --m_next;
            RefuseWord();
        }
        Take("the");
        if (Take("day")) return ReadMonthDay();
        const bool isLast = Word() == "last";
        const std::optional<int> number = isLast ? -1 : NumberOf(Word());
        if (!number) RefuseWord();
        const std::string_view next = Word(1);
        if (const std::optional<int> weekday = WeekdayOf(next)) {
            if (!isLast && (*number < 1 || *number > 5)) RefuseWord();
            m_rule.places.push_back({*number, *weekday});
            m_next += 2;
        } else if (isLast && next == "day") {
            m_rule.monthDays.push_back(-1);
            m_next += 2;
        } else if (isLast) {
            ++m_next;
            RefuseWord();
        } else {
            ReadMonthDay();
        }
    }

    void ReadMonthDay() {
        const std::optional<int> day = NumberOf(Word());
        if (!day || *day < 1 || *day > 31) RefuseWord();
        m_rule.monthDays.push_back(*day);
        ++m_next;
    }

    std::vector<std::string> m_words;
    std::size_t m_next = 0;
    RepeatRule m_rule;
};

}  // namespace

std::optional<RepeatRule> ReadRepeat(const std::string& text) {
    return Reader(text).Read();
}

}  // namespace orvo::cli
