// CIntlTime: a date with the date settings of the user's locale.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/text/CString.h>
#include <platform/time/CTime.h>

namespace orvo {

// The kinds of date text. The numbers are fixed; 2 is the numeric short date.
enum FormatType { eLongDate = 1, eShortDate = 2 };

// Pictures are made of d, M, y for day, month and year (d or dd, M or MM, MMM and MMMM for names,
// yy or yyyy), gg for the era, and separators. They come from CLDR for the system's locale; where
// its calendar is the Japanese one ("ca-japanese"), their years are years of the era, written "gg
// y"; all other calendars give way to the Gregorian one. A picture with gg counts in eras wherever
// it is used. Text with letters of pictures stands in single quotes.
class ORVO_API CIntlTime {
public:
    CIntlTime() = default;
    explicit CIntlTime(const CTime& time) : m_time(time) {}

    // The picture of the locale for that kind. The second argument is 1 where the caller walks the
    // picture field by field and 0 where it goes to ParseDateFromFormat; both get the same picture.
    // Owner:    this library; valid on the same thread until the locale changes.
    const CString& GetDateFormatA(FormatType type, int = 1);

    // What stands between the fields of the short date, exactly: such as "/", "-" or ". ".
    CString GetDateSeperator();

    // The date as text, by kind or by picture.
    // Owner:    this object, until the next call.
    const CString& FormatDate(FormatType type);
    const CString& FormatDate(const CString& picture);

    // Reads a date typed by the user. What the text doesn't say keeps its value on entry. Fields
    // follow the order of the picture; any of blank, "/", "-", ".", the separator and the signs of
    // the picture divides them; the digits of every script count; with two fields the year is taken
    // to be missing. Numbers followed by the signs for year, month and day (年月日) need no order.
    // An era before or after the year ("平成5", "平5", "H5") makes it a Western year; in a picture
    // with gg a year of up to two digits without an era counts in the era of today.
    // Returns:  non-zero where all of the text was understood and every field is one that a
    //           calendar has; else 0, with all three as they were.
    int ParseDateFromFormat(const CString& picture, const CString& text, char separator, int& year,
                            int& month, int& day);

private:
    CTime m_time;
    CString m_text;
};

}  // namespace orvo
