// Birthdays and other days that come back each year.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <fmt/format.h>

#include <people/PersonDate.h>
#include <platform/time/CTime.h>

namespace orvo {
namespace {

namespace chrono = std::chrono;

constexpr int kLeapYear = 2000;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Matches "yyyy", "mm", "dd" and characters that stand for themselves.
std::optional<PersonDate> Match(std::string_view text, std::string_view form) {
    if (text.size() != form.size()) return std::nullopt;
    PersonDate date;
    for (std::size_t i = 0; i < form.size(); ++i) {
        int PersonDate::*part = form[i] == 'y'   ? &PersonDate::year
                                : form[i] == 'm' ? &PersonDate::month
                                : form[i] == 'd' ? &PersonDate::day
                                                 : nullptr;
        if (part ? !IsDigit(text[i]) : text[i] != form[i]) return std::nullopt;
        if (part) date.*part = date.*part * 10 + (text[i] - '0');
    }
    return date;
}

bool Exists(const PersonDate& date, std::string_view form) {
    const auto has = [&](char part) { return form.find(part) != std::string_view::npos; };
    if (has('y') && date.year == 0) return false;
    if (has('m') && (date.month < 1 || date.month > 12)) return false;
    if (!has('d')) return true;
    const chrono::year_month_day day{
        chrono::year(has('y') ? date.year : kLeapYear),
        chrono::month(has('m') ? static_cast<unsigned>(date.month) : 1),
        chrono::day(static_cast<unsigned>(date.day))};
    return day.ok();
}

chrono::sys_days DayIn(const PersonDate& date, chrono::year year) {
    const chrono::month month(static_cast<unsigned>(date.month));
    const chrono::year_month_day day{year, month, chrono::day(static_cast<unsigned>(date.day))};
    return day.ok()
               ? chrono::sys_days(day)
               : chrono::sys_days(chrono::year_month_day_last{year, chrono::month_day_last(month)});
}

chrono::year YearOf(chrono::sys_days day) {
    return chrono::year_month_day(day).year();
}

}  // namespace

std::optional<PersonDate> ReadPersonDate(std::string_view text) {
    constexpr std::array<std::string_view, 9> forms{"yyyymmdd", "yyyy-mm-dd", "--mmdd",
                                                    "--mm-dd",  "--mm",       "---dd",
                                                    "yyyy-mm",  "yyyy",       "yyyy--"};
    text = text.substr(0, text.find_first_of("T "));
    for (const std::string_view form : forms) {
        const std::optional<PersonDate> date = Match(text, form);
        if (date && Exists(*date, form)) return date;
    }
    return std::nullopt;
}

std::string FormatPersonDate(const PersonDate& date) {
    if (date.month == 0 && date.day == 0) return fmt::format("{:04}", date.year);
    if (date.month == 0) return fmt::format("---{:02}", date.day);
    const std::string year = date.year == 0 ? std::string("-") : fmt::format("{:04}", date.year);
    if (date.day == 0) return fmt::format("{}-{:02}", year, date.month);
    return fmt::format("{}-{:02}-{:02}", year, date.month, date.day);
}

chrono::sys_days Today() {
    const CTime now = CTime::GetCurrentTime();
    return chrono::year_month_day{chrono::year(now.GetYear()),
                                  chrono::month(static_cast<unsigned>(now.GetMonth())),
                                  chrono::day(static_cast<unsigned>(now.GetDay()))};
}

chrono::sys_days NextDay(const PersonDate& date, chrono::sys_days today) {
    const chrono::year year = YearOf(today);
    const chrono::sys_days day = DayIn(date, year);
    return day >= today ? day : DayIn(date, year + chrono::years(1));
}

std::optional<int> YearsAtNextDay(const PersonDate& date, chrono::sys_days today) {
    if (date.year == 0 || !date.ComesBack()) return std::nullopt;
    const int years = static_cast<int>(YearOf(NextDay(date, today))) - date.year;
    return years < 0 ? std::nullopt : std::optional(years);
}

}  // namespace orvo
