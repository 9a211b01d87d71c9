// Days and times as they stand on a command line.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <fmt/format.h>

#include <cli/LocalDate.h>
#include <cli/Store.h>
#include <contracts/Dates.h>
#include <contracts/IntlTime.h>
#include <platform/text/CodePage.h>
#include <platform/time/CTime.h>

namespace orvo::cli {
namespace {

struct Civil {
    int year = -1;
    int month = -1;
    int day = -1;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

bool IsOnDay(const CTime& time, const Civil& civil) {
    return time.GetYear() == civil.year && time.GetMonth() == civil.month &&
           time.GetDay() == civil.day;
}

// The first moment of the day that a record can hold; -1 where the calendar has no such day.
std::time_t MomentOfDay(const Civil& civil) {
    const CTime start(civil.year, civil.month, civil.day, 0, 0, 0);
    if (start.GetTime() < 0 && IsOnDay(CTime(0), civil)) return 0;
    return IsOnDay(start, civil) ? start.GetTime() : -1;
}

// -1 where the clock doesn't show that time on that day.
std::time_t MomentOfClock(const Civil& civil) {
    const CTime time(civil.year, civil.month, civil.day, civil.hour, civil.minute, civil.second);
    const bool isShown = IsOnDay(time, civil) && time.GetHour() == civil.hour &&
                         time.GetMinute() == civil.minute && time.GetSecond() == civil.second;
    return isShown ? time.GetTime() : -1;
}

// Reads a text that has a digit wherever the form has the letter of a field, and is the same as the
// form elsewhere.
bool ReadForm(std::string_view form, std::string_view text, Civil& civil) {
    if (text.size() != form.size()) return false;
    Civil read{0, 0, 0, 0, 0, 0};
    const auto fieldOf = [&read](char letter) -> int* {
        switch (letter) {
            case 'y':
                return &read.year;
            case 'M':
                return &read.month;
            case 'd':
                return &read.day;
            case 'h':
                return &read.hour;
            case 'm':
                return &read.minute;
            case 's':
                return &read.second;
            default:
                return nullptr;
        }
    };
    for (std::size_t i = 0; i < form.size(); ++i) {
        int* field = fieldOf(form[i]);
        if (field == nullptr ? text[i] != form[i] : text[i] < '0' || text[i] > '9') return false;
        if (field != nullptr) *field = *field * 10 + (text[i] - '0');
    }
    civil = read;
    return true;
}

constexpr std::string_view kIsoDay = "yyyy-MM-dd";
constexpr std::string_view kIsoTimes[] = {kIsoDay, "yyyy-MM-ddThh:mm", "yyyy-MM-ddThh:mm:ss"};

// A missing year is the present one; two digits stand for 1938 to 2037.
int WholeYear(int year) {
    if (year == -1) return CTime::GetCurrentTime().GetYear();
    if (year < 38) return year + 2000;
    return year < 100 ? year + 1900 : year;
}

bool ReadShortDate(const std::string& utf8, Civil& civil) {
    std::string bytes;
    CodePage::System().FromUtf8(utf8, bytes);
    CIntlTime reader;
    const CString separator = reader.GetDateSeperator();
    const char first = separator.IsEmpty() ? '/' : separator.View().front();
    Civil read;
    if (reader.ParseDateFromFormat(reader.GetDateFormatA(eShortDate, 0), CString(bytes), first,
                                   read.year, read.month, read.day) == 0) {
        return false;
    }
    read.year = WholeYear(read.year);
    civil = read;
    return true;
}

}  // namespace

std::time_t DayOfText(const std::string& text, const char* option) {
    Civil civil;
    const bool isRead = ReadForm(kIsoDay, text, civil) || ReadShortDate(text, civil);
    const std::time_t day = isRead ? MomentOfDay(civil) : -1;
    if (day < 0 || day >= kMaxDate) {
        throw CommandError(kWrongUse, fmt::format("{}: \"{}\" is no date from 1970 to 2038 (such "
                                                  "as 2026-12-24)",
                                                  option, text));
    }
    return day;
}

std::optional<int> DateChoiceOfText(std::string_view text) {
    constexpr std::array<std::string_view, 4> kWords{"today", "tomorrow", "week", "none"};
    const auto* const word = std::ranges::find(kWords, text);
    return word == kWords.end() ? std::nullopt
                                : std::optional(static_cast<int>(word - kWords.begin()));
}

std::time_t TimeOfText(const std::string& text, const char* option) {
    Civil civil;
    const bool isRead = std::ranges::any_of(
        kIsoTimes, [&](std::string_view form) { return ReadForm(form, text, civil); });
    const std::time_t time = isRead ? MomentOfClock(civil) : -1;
    if (time < 0) {
        throw CommandError(
            kWrongUse,
            fmt::format("{}: \"{}\" is no local time (such as 2026-12-24T18:00)", option, text));
    }
    return time;
}

}  // namespace orvo::cli
