// How a to-do comes again, in words.
// SPDX-License-Identifier: MIT
#include <array>
#include <memory>
#include <vector>

#include <fmt/format.h>
#include <unicode/udat.h>
#include <unicode/udatpg.h>
#include <unicode/ulistformatter.h>
#include <unicode/uloc.h>
#include <unicode/unum.h>

#include <contracts/Dates.h>
#include <contracts/ToDoDetails.h>
#include <exchange/calendar/OldRule.h>
#include <exchange/calendar/RepeatRule.h>
#include <host/RepeatWords.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <platform/text/SystemLocale.h>
#include <platform/text/SystemText.h>
#include <platform/text/Utf8.h>

namespace orvo {
namespace {

using Unit = RepeatRule::Unit;

// The texts in lang/en.po.
constexpr unsigned kEveryDay = 33201;  // then every second, every %1, and so on for each unit
constexpr unsigned kTextsOfUnit = 3;
constexpr unsigned kEveryWeekday = 33213;
constexpr unsigned kEverySecondWeekday = 33214;
constexpr unsigned kOnWeekdays = 33215;
constexpr unsigned kOnPlaces = 33216;
constexpr unsigned kMonthDay = 33217;
constexpr unsigned kLastDay = 33218;
constexpr unsigned kFirstWeekday = 33219;  // to the fifth
constexpr unsigned kLastWeekday = 33224;   // and the last but one
constexpr unsigned kOnDayOfYear = 33226;
constexpr unsigned kOnPlaceOfYear = 33227;
constexpr unsigned kUntil = 33228;
constexpr unsigned kOnce = 33229;
constexpr unsigned kTimes = 33230;
constexpr unsigned kOwnRule = 33231;
constexpr unsigned kOwnDates = 33232;

std::string Text(unsigned number, const std::vector<std::string>& values = {}) {
    std::string text = ToUtf8(OrvoShareText(number));
    for (std::size_t i = values.size(); i-- > 0;) {
        const std::string mark = fmt::format("%{}", i + 1);
        const std::size_t place = text.find(mark);
        if (place != std::string::npos) text.replace(place, mark.size(), values[i]);
    }
    return text;
}

// Names of days and months have to be of the language that the texts are in.
std::string LocaleOfTexts() {
    if (OrvoShareLanguageCode() == 0) return "en";
    UErrorCode status = U_ZERO_ERROR;
    char name[ULOC_FULLNAME_CAPACITY] = "";
    uloc_forLanguageTag(SystemLocale::Tag().c_str(), name, sizeof name, nullptr, &status);
    uloc_setKeywordValue("calendar", "gregorian", name, sizeof name, &status);
    return U_SUCCESS(status) ? name : "en";
}

struct Close {
    void operator()(UDateTimePatternGenerator* patterns) const { udatpg_close(patterns); }
    void operator()(UListFormatter* format) const { ulistfmt_close(format); }
};
struct CloseDate {
    void operator()(UDateFormat* format) const { udat_close(format); }
};
struct CloseNumber {
    void operator()(UNumberFormat* format) const { unum_close(format); }
};

std::string Result(const char16_t* text, int32_t size, UErrorCode status) {
    if (U_FAILURE(status)) return {};
    return Utf16ToUtf8({text, static_cast<std::size_t>(size)});
}

// The pieces that ICU knows the languages of. Where it fails, a piece is empty.
class Names {
public:
    Names() : m_locale(LocaleOfTexts()) {}

    // As the parts of a date that `skeleton` names are written.
    std::string Date(std::int64_t day, const char16_t* skeleton) const {
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<UDateTimePatternGenerator, Close> patterns(
            udatpg_open(m_locale.c_str(), &status));
        char16_t pattern[kMost];
        const int32_t length =
            udatpg_getBestPattern(patterns.get(), skeleton, -1, pattern, kMost, &status);
        const std::unique_ptr<UDateFormat, CloseDate> format(udat_open(
            UDAT_PATTERN, UDAT_PATTERN, m_locale.c_str(), u"GMT", -1, pattern, length, &status));
        char16_t text[kMost];
        constexpr double kMilliseconds = 1000.0 * kSecondsOfDay;
        const int32_t size = udat_format(format.get(), static_cast<double>(day) * kMilliseconds,
                                         text, kMost, nullptr, &status);
        return Result(text, size, status);
    }

    std::string Weekday(int weekday) const {
        constexpr std::int64_t kMonday = 4;  // 1970-01-05
        return Date(kMonday + weekday, u"cccc");
    }

    std::string Month(int month) const { return Date(DaysOfCivil(1970, month, 1), u"LLLL"); }

    std::string Number(std::int64_t number, UNumberFormatStyle style = UNUM_DECIMAL) const {
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<UNumberFormat, CloseNumber> format(
            unum_open(style, nullptr, 0, m_locale.c_str(), nullptr, &status));
        char16_t text[kMost];
        const int32_t size = unum_formatInt64(format.get(), number, text, kMost, nullptr, &status);
        return Result(text, size, status);
    }

    std::string List(const std::vector<std::string>& items) const {
        if (items.size() == 1) return items.front();
        std::vector<std::u16string> texts;
        std::vector<const char16_t*> starts;
        std::vector<int32_t> sizes;
        texts.reserve(items.size());
        for (const std::string& item : items) texts.push_back(Utf8ToUtf16(item));
        for (const std::u16string& text : texts) {
            starts.push_back(text.data());
            sizes.push_back(static_cast<int32_t>(text.size()));
        }
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<UListFormatter, Close> format(
            ulistfmt_open(m_locale.c_str(), &status));
        char16_t text[kMost * 4];
        const int32_t size =
            ulistfmt_format(format.get(), starts.data(), sizes.data(),
                            static_cast<int32_t>(starts.size()), text, kMost * 4, &status);
        return Result(text, size, status);
    }

private:
    static constexpr int32_t kMost = 256;

    std::string m_locale;
};

// A rule with what it leaves to its start.
class Words {
public:
    Words(const RepeatRule& rule, const std::optional<CivilTime>& start) : m_rule(rule) {
        if (!start) return;
        m_start = DaysOfCivil(start->year, start->month, start->day);
        const bool hasDay = !rule.monthDays.empty() || !rule.places.empty();
        if (rule.unit == Unit::Week && rule.weekdays.empty()) {
            m_rule.weekdays.push_back(WeekdayOfDay(*m_start));
        } else if ((rule.unit == Unit::Month || rule.unit == Unit::Year) && !hasDay) {
            m_rule.monthDays.push_back(start->day);
        }
        if (rule.unit == Unit::Year && rule.month == 0) m_rule.month = start->month;
    }

    std::string All() const {
        const std::string words = WithPlace();
        if (m_rule.until) {
            // A moment in UTC is told as the local clock shows it.
            std::int64_t day = DayOf(m_rule.until->seconds);
            if (m_rule.until->form == WallTime::Form::Utc) {
                const auto local = CivilOfMoment(m_rule.until->seconds);
                if (local) day = DaysOfCivil(local->year, local->month, local->day);
            }
            return Text(kUntil, {words, m_names.Date(day, u"yMMMd")});
        }
        if (m_rule.count == 1) return Text(kOnce, {words});
        return m_rule.count ? Text(kTimes, {words, m_names.Number(*m_rule.count)}) : words;
    }

private:
    std::string Every() const {
        const auto kind = static_cast<unsigned>(m_rule.interval > 2 ? 3 : m_rule.interval) - 1;
        return Text(kEveryDay + kTextsOfUnit * static_cast<unsigned>(m_rule.unit) + kind,
                    {m_names.Number(m_rule.interval)});
    }

    std::string WithPlace() const {
        switch (m_rule.unit) {
            case Unit::Day:
                return Every();
            case Unit::Week:
                return WithWeekdays();
            case Unit::Month:
                return HasPlace() ? Text(kOnPlaces, {Every(), Places()}) : Every();
            case Unit::Year:
                break;
        }
        if (!HasPlace() || m_rule.month == 0) return Every();
        if (m_rule.places.empty() && m_rule.monthDays.front() > 0) {
            // The day of a leap year, so that 29 February is told as such.
            const std::int64_t day = DaysOfCivil(1972, m_rule.month, m_rule.monthDays.front());
            return Text(kOnDayOfYear, {Every(), m_names.Date(day, u"MMMMd")});
        }
        return Text(kOnPlaceOfYear, {Every(), Places(), m_names.Month(m_rule.month)});
    }

    std::string WithWeekdays() const {
        std::vector<std::string> days;
        for (const int day : m_rule.weekdays) days.push_back(m_names.Weekday(day));
        if (days.empty()) return Every();
        if (days.size() > 1 || m_rule.interval > 2) {
            return Text(kOnWeekdays, {Every(), m_names.List(days)});
        }
        return Text(m_rule.interval == 1 ? kEveryWeekday : kEverySecondWeekday, days);
    }

    bool HasPlace() const { return !m_rule.monthDays.empty() || !m_rule.places.empty(); }

    std::string Places() const {
        std::vector<std::string> places;
        for (const int day : m_rule.monthDays) {
            places.push_back(day < 0 ? Text(kLastDay)
                                     : Text(kMonthDay, {m_names.Number(day, UNUM_ORDINAL),
                                                        m_names.Number(day)}));
        }
        for (const RepeatRule::Place& place : m_rule.places) {
            const unsigned text = place.ordinal > 0
                                      ? kFirstWeekday + static_cast<unsigned>(place.ordinal - 1)
                                      : kLastWeekday + static_cast<unsigned>(-place.ordinal - 1);
            places.push_back(Text(text, {m_names.Weekday(place.weekday)}));
        }
        return m_names.List(places);
    }

    RepeatRule m_rule;
    std::optional<std::int64_t> m_start;
    Names m_names;
};

// A day that its month never has is no day to be told.
bool HasWords(const RepeatRule& rule) {
    constexpr std::array<int, 12> kLongest{31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (const int day : rule.monthDays) {
        if (rule.month > 0 && day > kLongest.at(static_cast<std::size_t>(rule.month - 1))) {
            return false;
        }
    }
    for (const RepeatRule::Place& place : rule.places) {
        if (place.ordinal < -2) return false;
    }
    // 30 February never comes.
    constexpr int kLeapYear = 1972;
    const bool hasDay = rule.month != 0 && !rule.monthDays.empty() && rule.monthDays[0] > 0;
    return !hasDay ||
           CivilOfDays(DaysOfCivil(kLeapYear, rule.month, rule.monthDays[0])).month == rule.month;
}

}  // namespace

std::string RepeatWords(std::string_view rule, const std::optional<CivilTime>& start) {
    if (rule.empty()) return {};
    if (rule == kOtherRecurrence) return Text(kOwnDates);
    const std::string ofOld = RuleOfOldRule(rule).value_or(std::string(rule));
    const std::optional<RepeatRule> read = ReadRepeatRule(ofOld);
    if (!read || !HasWords(*read)) return Text(kOwnRule, {std::string(rule)});
    return Words(*read, start).All();
}

std::string RepeatWordsOf(const CToDoRecord& record) {
    std::optional<CivilTime> first = record.GetDetails().start;
    long due = kMaxDate;
    record.GetDueDate(due);
    if (!first && due != kMaxDate) first = CivilOfMoment(due);
    return RepeatWords(record.Recurrence(), first);
}

}  // namespace orvo
