// Days and times as they stand on a command line.
// SPDX-License-Identifier: MIT
#include <cstdio>

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

// The moment of a civil time that the calendar has; else -1.
std::time_t MomentOf(const Civil& civil) {
    const CTime time(civil.year, civil.month, civil.day, civil.hour, civil.minute, civil.second);
    const bool isSame = time.GetYear() == civil.year && time.GetMonth() == civil.month &&
                        time.GetDay() == civil.day;
    const bool isClock = civil.hour >= 0 && civil.hour < 24 && civil.minute >= 0 &&
                         civil.minute < 60 && civil.second >= 0 && civil.second < 60;
    return isSame && isClock ? time.GetTime() : -1;
}

// Gives: how many fields were read, where they are all of the text; else 0.
int ReadIso(const std::string& text, Civil& civil) {
    int length = 0;
    const int size = static_cast<int>(text.size());
    if (std::sscanf(text.c_str(), "%4d-%2d-%2d%n", &civil.year, &civil.month, &civil.day,
                    &length) == 3 &&
        length == size) {
        return 3;
    }
    length = 0;
    std::sscanf(text.c_str(), "%4d-%2d-%2dT%2d:%2d%n", &civil.year, &civil.month, &civil.day,
                &civil.hour, &civil.minute, &length);
    if (length == size && size > 0) return 5;
    length = 0;
    std::sscanf(text.c_str(), "%4d-%2d-%2dT%2d:%2d:%2d%n", &civil.year, &civil.month, &civil.day,
                &civil.hour, &civil.minute, &civil.second, &length);
    return length == size && size > 0 ? 6 : 0;
}

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
    const bool isRead = ReadIso(text, civil) == 3 || ReadShortDate(text, civil);
    const std::time_t day = isRead ? MomentOf(civil) : -1;
    if (day < 0 || day >= kMaxDate) {
        throw CommandError(kWrongUse, fmt::format("{}: \"{}\" is no date from 1970 to 2038 (such "
                                                  "as 2026-12-24)",
                                                  option, text));
    }
    return day;
}

std::time_t TimeOfText(const std::string& text, const char* option) {
    Civil civil;
    const std::time_t time = ReadIso(text, civil) != 0 ? MomentOf(civil) : -1;
    if (time < 0) {
        throw CommandError(
            kWrongUse,
            fmt::format("{}: \"{}\" is no local time (such as 2026-12-24T18:00)", option, text));
    }
    return time;
}

}  // namespace orvo::cli
