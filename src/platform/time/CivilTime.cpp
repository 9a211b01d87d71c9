// The arithmetic of civil days, and their ISO 8601 text.
// SPDX-License-Identifier: MIT
#include <platform/time/TimeZone.h>

namespace orvo {
namespace {

constexpr int kEraYears = 400;
constexpr std::int64_t kEraDays = 146097;
constexpr std::int64_t kDaysFromMarchOfYear0 = 719468;  // to 1970-01-01

std::int64_t FloorDivide(std::int64_t value, std::int64_t divisor) {
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

void AppendDigits(std::string& text, int value, int digits) {
    int power = 1;
    while (--digits > 0) power *= 10;
    for (; power > 0; power /= 10) text += static_cast<char>('0' + value / power % 10);
}

// Reads exactly `digits` digits at `position`; -1 where something else stands there.
int ReadDigits(std::string_view text, std::size_t position, std::size_t digits) {
    int value = 0;
    for (const char c : text.substr(position, digits)) {
        if (c < '0' || c > '9') return -1;
        value = value * 10 + (c - '0');
    }
    return value;
}

bool ReadDay(std::string_view text, CivilTime& civil) {
    if (text[4] != '-' || text[7] != '-') return false;
    civil.year = ReadDigits(text, 0, 4);
    civil.month = ReadDigits(text, 5, 2);
    civil.day = ReadDigits(text, 8, 2);
    // A day that the calendar doesn't have comes back as another one.
    return civil.year >= 0 && CivilOfDays(DaysOfCivil(civil.year, civil.month, civil.day)) == civil;
}

bool ReadClock(std::string_view text, CivilTime& civil) {
    if (text[10] != 'T' || text[13] != ':' || text[16] != ':') return false;
    civil.hour = ReadDigits(text, 11, 2);
    civil.minute = ReadDigits(text, 14, 2);
    civil.second = ReadDigits(text, 17, 2);
    return civil.hour >= 0 && civil.hour < 24 && civil.minute >= 0 && civil.minute < 60 &&
           civil.second >= 0 && civil.second < 60;
}

}  // namespace

// Years are counted from March, so that the leap day is the last one of its year.
std::int64_t DaysOfCivil(std::int64_t year, int month, int day) {
    const std::int64_t marchMonth = std::int64_t{month} - 3;
    const std::int64_t marchYear = year + FloorDivide(marchMonth, 12);
    const std::int64_t monthOfYear = marchMonth - FloorDivide(marchMonth, 12) * 12;
    const std::int64_t era = FloorDivide(marchYear, kEraYears);
    const std::int64_t yearOfEra = marchYear - era * kEraYears;
    const std::int64_t dayOfYear = (153 * monthOfYear + 2) / 5;
    const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * kEraDays + dayOfEra - kDaysFromMarchOfYear0 + day - 1;
}

CivilTime CivilOfDays(std::int64_t days) {
    const std::int64_t sinceYear0 = days + kDaysFromMarchOfYear0;
    const std::int64_t era = FloorDivide(sinceYear0, kEraDays);
    const int dayOfEra = static_cast<int>(sinceYear0 - era * kEraDays);
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int monthOfYear = (5 * dayOfYear + 2) / 153;

    CivilTime civil;
    civil.day = dayOfYear - (153 * monthOfYear + 2) / 5 + 1;
    civil.month = monthOfYear < 10 ? monthOfYear + 3 : monthOfYear - 9;
    civil.year = static_cast<int>(yearOfEra + era * kEraYears + (civil.month <= 2 ? 1 : 0));
    return civil;
}

std::string FormatIsoDay(const CivilTime& civil) {
    std::string text;
    AppendDigits(text, civil.year, 4);
    text += '-';
    AppendDigits(text, civil.month, 2);
    text += '-';
    AppendDigits(text, civil.day, 2);
    return text;
}

std::string FormatIso(const CivilTime& civil) {
    std::string text = FormatIsoDay(civil);
    text += 'T';
    AppendDigits(text, civil.hour, 2);
    text += ':';
    AppendDigits(text, civil.minute, 2);
    text += ':';
    AppendDigits(text, civil.second, 2);
    return text;
}

std::optional<CivilTime> ParseIso(std::string_view text) {
    constexpr std::size_t kDayLength = 10;
    constexpr std::size_t kFullLength = 19;
    CivilTime civil;
    if (text.size() != kDayLength && text.size() != kFullLength) return std::nullopt;
    if (!ReadDay(text, civil)) return std::nullopt;
    if (text.size() == kFullLength && !ReadClock(text, civil)) return std::nullopt;
    return civil;
}

}  // namespace orvo
