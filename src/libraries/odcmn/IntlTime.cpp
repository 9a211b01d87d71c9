// CIntlTime: a date with the date settings of the user's locale.
// SPDX-License-Identifier: MIT
#include <array>
#include <memory>
#include <optional>
#include <string>

#include <unicode/udat.h>
#include <unicode/uloc.h>

#include <contracts/IntlTime.h>
#include <libraries/odcmn/DatePicture.h>
#include <libraries/odcmn/DateReader.h>
#include <platform/text/SystemLocale.h>
#include <platform/text/SystemText.h>
#include <platform/text/Utf8.h>

namespace orvo {
namespace {

// What CLDR says of dates in one locale; texts in UTF-8.
struct LocaleDates {
    std::string shortPicture;
    std::string longPicture;
    MonthNames months;
};

struct FormatCloser {
    void operator()(UDateFormat* format) const { udat_close(format); }
};
using FormatHandle = std::unique_ptr<UDateFormat, FormatCloser>;

bool HasJapaneseCalendar(const std::string& locale) {
    UErrorCode status = U_ZERO_ERROR;
    char calendar[ULOC_KEYWORDS_CAPACITY] = "";
    uloc_getKeywordValue(locale.c_str(), "calendar", calendar, sizeof calendar, &status);
    return std::string("japanese") == calendar;
}

// The system's locale as ICU names it. Of the calendars, only the Japanese one is taken over;
// dates of records are read and written by the Gregorian one in all other locales.
std::string LocaleName() {
    UErrorCode status = U_ZERO_ERROR;
    char name[ULOC_FULLNAME_CAPACITY] = "";
    uloc_forLanguageTag(SystemLocale::Tag().c_str(), name, sizeof name, nullptr, &status);
    if (!HasJapaneseCalendar(name)) {
        uloc_setKeywordValue("calendar", "gregorian", name, sizeof name, &status);
    }
    return U_SUCCESS(status) ? name : "en";
}

// Every call of ICU below does nothing once `status` is a failure.
FormatHandle OpenFormat(const std::string& locale, UDateFormatStyle style, UErrorCode& status) {
    return FormatHandle(
        udat_open(UDAT_NONE, style, locale.c_str(), u"GMT", -1, nullptr, 0, &status));
}

std::string PatternOf(const FormatHandle& format, UErrorCode& status) {
    char16_t pattern[256];
    const int32_t length = udat_toPattern(format.get(), false, pattern, 256, &status);
    if (U_FAILURE(status)) return {};
    return Utf16ToUtf8({pattern, static_cast<std::size_t>(length)});
}

std::array<std::string, 12> MonthsOf(const FormatHandle& format, UDateFormatSymbolType type,
                                     UErrorCode& status) {
    std::array<std::string, 12> months;
    for (std::size_t i = 0; i < months.size(); ++i) {
        char16_t name[128];
        const int32_t index = static_cast<int32_t>(i);
        const int32_t length = udat_getSymbols(format.get(), type, index, name, 128, &status);
        if (U_FAILURE(status)) break;
        months[i] = Utf16ToUtf8({name, static_cast<std::size_t>(length)});
    }
    return months;
}

LocaleDates ReadLocaleDates() {
    const std::string locale = LocaleName();
    const bool japanese = HasJapaneseCalendar(locale);
    UErrorCode status = U_ZERO_ERROR;
    const FormatHandle shortFormat = OpenFormat(locale, UDAT_SHORT, status);
    const FormatHandle longFormat = OpenFormat(locale, UDAT_LONG, status);
    const LocaleDates dates{PictureOfPattern(PatternOf(shortFormat, status), japanese),
                            PictureOfPattern(PatternOf(longFormat, status), japanese),
                            {MonthsOf(longFormat, UDAT_MONTHS, status),
                             MonthsOf(longFormat, UDAT_SHORT_MONTHS, status)}};
    // Without locale data dates are those of ISO 8601.
    return U_SUCCESS(status) ? dates : LocaleDates{"yyyy-MM-dd", "yyyy-MM-dd", {}};
}

// The dates of the system's locale, ready for use in its code page.
struct SystemDates {
    unsigned generation;
    LocaleDates dates;
    CString shortPicture;
    CString longPicture;
    CString separator;
};

SystemDates ReadSystemDates() {
    const unsigned generation = SystemLocale::Generation();
    const LocaleDates dates = ReadLocaleDates();
    return {generation, dates, SystemText(dates.shortPicture), SystemText(dates.longPicture),
            SystemText(SeparatorOf(SplitPicture(dates.shortPicture)))};
}

const SystemDates& CurrentDates() {
    thread_local std::optional<SystemDates> current;
    if (!current || current->generation != SystemLocale::Generation()) {
        current = ReadSystemDates();
    }
    return *current;
}

CivilTime Today() {
    return CivilOfMoment(CTime::GetCurrentTime().GetTime()).value_or(CivilTime());
}

}  // namespace

const CString& CIntlTime::GetDateFormatA(FormatType type, int) {
    const SystemDates& current = CurrentDates();
    return type == eLongDate ? current.longPicture : current.shortPicture;
}

CString CIntlTime::GetDateSeperator() {
    return CurrentDates().separator;
}

const CString& CIntlTime::FormatDate(FormatType type) {
    return FormatDate(GetDateFormatA(type));
}

const CString& CIntlTime::FormatDate(const CString& picture) {
    const std::optional<CivilTime> date = CivilOfMoment(m_time.GetTime());
    m_text = !date ? CString()
                   : SystemText(FillPicture(SplitPicture(ToUtf8(picture)), *date,
                                            CurrentDates().dates.months));
    return m_text;
}

int CIntlTime::ParseDateFromFormat(const CString& picture, const CString& text, char separator,
                                   int& year, int& month, int& day) {
    const std::optional<TypedDate> date =
        ReadDate(SplitPicture(ToUtf8(picture)), ToUtf8(text), separator, Today());
    if (!date) return 0;
    year = date->year.value_or(year);
    month = date->month.value_or(month);
    day = date->day.value_or(day);
    return 1;
}

}  // namespace orvo
