// Dates between the two forms of the system, and checks of them.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdlib>
#include <limits>
#include <string_view>

#include <contracts/IntlTime.h>
#include <orvoshare/text/DateConversion.h>
#include <platform/text/SystemLocale.h>
#include <platform/text/SystemText.h>
#include <platform/time/COleDateTime.h>
#include <platform/time/CTime.h>

namespace orvo {
namespace {

constexpr long kNoDate = -1;
constexpr int kFirstYear = 1970;
constexpr int kLastYear = 2031;
constexpr int kFullYearLength = 4;
constexpr int kJapaneseCalendar = 3;

// Years that stand for "no lower limit" and "no upper limit" where dates are typed.
constexpr int kLeastYear = 1752;
constexpr int kGreatestYear = 9999;

// The years that are accepted while an era counts, and the one that changes over to the other era.
struct EraYears {
    int first;
    int last;
    int changeYear;
};
constexpr EraYears kHeisei{std::numeric_limits<int>::min(), 43, 63};
constexpr EraYears kShowa{45, std::numeric_limits<int>::max(), 1};

int Refuse(int& year, int newYear) {
    year = newYear;
    return 0;
}

int AcceptEraYear(int& year) {
    static const EraYears* era = &kHeisei;  // kept from call to call
    if (year == era->changeYear) {
        era = era == &kHeisei ? &kShowa : &kHeisei;
        return 1;
    }
    const bool isInEra = year >= era->first && year <= era->last;
    return isInEra ? 1 : Refuse(year, 0);
}

int AcceptFullYear(int& year) {
    if (year == kLeastYear) return Refuse(year, kFirstYear);
    if (year == kGreatestYear) return Refuse(year, kLastYear);
    const bool isInRange = year >= kFirstYear && year <= kLastYear;
    return isInRange ? 1 : Refuse(year, 0);
}

bool NamesAnEra(const CString& field) {
    // In Unicode, as a page that lacks the signs would take its substitute for them.
    const std::string utf8 = ToUtf8(field);
    return utf8.find("平") != std::string::npos || utf8.find("昭") != std::string::npos;
}

// Drops the fields before the year's from both; `text` then begins with the year.
// Returns:  the field of the picture with the year; empty where it has none.
CString FindYear(CString picture, CString& text, const CString& separator) {
    while (!picture.IsEmpty()) {
        CString field = picture.SpanExcluding(separator);
        if (field.Find('y') >= 0) return field;
        const int textLength = text.SpanExcluding(separator).GetLength();
        picture.Delete(0, field.GetLength() + separator.GetLength());
        text.Delete(0, textLength + separator.GetLength());
    }
    return {};
}

// A text without a number leaves `year` as it was; a number beyond an int counts as the nearest
// one.
void ReadYear(const CString& field, int& year) {
    const char* begin = field;
    char* end = nullptr;
    const long number = std::strtol(begin, &end, 10);
    if (end == begin) return;
    year = static_cast<int>(
        std::clamp<long>(number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

bool HasJapaneseCalendar() {
    char type[2] = "";
    GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_ICALENDARTYPE, type, sizeof type);
    return std::strtol(type, nullptr, 10) == kJapaneseCalendar;
}

}  // namespace

unsigned long Vb2CDateHelper(double date) {
    const COleDateTime given(date);
    if (given.GetYear() < 0) return static_cast<unsigned long>(kNoDate);
    const CTime time(given.GetYear(), given.GetMonth(), given.GetDay(), given.GetHour(),
                     given.GetMinute(), given.GetSecond(), -1);
    return static_cast<unsigned long>(time.GetTime());
}

double C2VbDateHelper(long date) {
    return COleDateTime(CTime(date).GetTime());
}

int IsValidCDate(long date) {
    std::tm local{};
    return CTime(date).GetLocalTm(&local) != nullptr;
}

int IsDateWithOrvoRange(long date) {
    if (!IsValidCDate(date)) return 0;
    CTime first(kFirstYear, 1, 1, 0, 0, 0, -1);
    // The first day may begin at the very moment whose number stands for no date.
    if (first.GetTime() == kNoDate) first = CTime(kFirstYear, 1, 2, 0, 0, 0, -1);
    const CTime end(kLastYear + 1, 1, 1, 0, 0, 0, -1);
    return first.GetTime() <= date && date < end.GetTime();
}

unsigned long OrvoVb2CDate(double date) {
    const long converted = static_cast<long>(Vb2CDateHelper(date));
    const bool isInRange = converted != kNoDate && IsDateWithOrvoRange(converted);
    return static_cast<unsigned long>(isInRange ? converted : kNoDate);
}

int GetYearFromDateString(CString text, int& year) {
    CIntlTime today(CTime::GetCurrentTime());
    const CString separator = today.GetDateSeperator();
    const CString pictureField = FindYear(today.GetDateFormatA(eShortDate, 1), text, separator);

    CString field = text.SpanExcluding(separator);
    if (pictureField.Find("gg") >= 0) {
        if (!NamesAnEra(field)) return Refuse(year, 0);
        // The blank may stand behind the year: then no year is left.
        field.Delete(0, text.Find(' ') + 1);
    }
    ReadYear(field, year);
    if (HasJapaneseCalendar()) return AcceptEraYear(year);
    return field.GetLength() == kFullYearLength ? AcceptFullYear(year) : 1;
}

}  // namespace orvo
