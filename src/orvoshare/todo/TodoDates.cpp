// The dates of to-dos: when one is due, and how a date is shown, typed and chosen.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <contracts/Dates.h>
#include <contracts/DayPicker.h>
#include <contracts/IntlTime.h>
#include <contracts/RecordStore.h>
#include <orvoshare/todo/TodoDates.h>

namespace orvo {
namespace {

constexpr int kFirstYear = 1970;
constexpr int kLastYear = 2038;

CTime StartOfToday(int daysLater = 0) {
    const CTime now = CTime::GetCurrentTime();
    return CTime(now.GetYear(), now.GetMonth(), now.GetDay() + daysLater, 0, 0, 0);
}

CTime EndOfDay(int year, int month, int day) {
    return CTime(year, month, day, 23, 59, 59);
}

// The day and the month of a picture, in its order, with the separator between them.
CString PictureWithoutYear(const CString& picture, const CString& separator) {
    CString result;
    char letterBefore = 0;
    CString rest = picture;
    for (int next = rest.FindOneOf("MmDd"); next != -1; next = rest.FindOneOf("MmDd")) {
        const char sign = rest[next];
        const char letter = sign == 'm' || sign == 'M' ? 'M' : 'D';
        if (letterBefore != 0 && letterBefore != letter) result += separator;
        result += sign;
        letterBefore = letter;
        rest = rest.Mid(next + 1);
    }
    return result;
}

// Two digits mean 1938 to 2037.
int FullYear(int year) {
    if (year < 38) year += 2000;
    if (year < 100) year += 1900;
    return std::clamp(year, kFirstYear, kLastYear);
}

long PickedDate(long current) {
    CTime day = current == kMaxDate ? CTime::GetCurrentTime() : CTime(current);
    return DisplayOrvoUIDayPickerDlg(day) != 0 ? day.GetTime() : -1;
}

}  // namespace

int IsDueToday(long date) {
    const CTime now = CTime::GetCurrentTime();
    return date <= EndOfDay(now.GetYear(), now.GetMonth(), now.GetDay()).GetTime();
}

int IsDueYesterdayOrEarlier(long date) {
    // Not by the last second of the day before: where the calendar leaves that day out, it would
    // fall into today.
    return date < StartOfToday().GetTime();
}

bool IsUnstarted(const CToDoRecord& record) {
    long start = kMaxDate;
    record.GetStartDate(start);
    return start != kMaxDate && record.IsCompleted() == 0 &&
           start > CTime::GetCurrentTime().GetTime();
}

void DateText(long date, CString& text, int withYear) {
    if (date == kMaxDate) {
        text.Empty();
        return;
    }
    CIntlTime time{CTime(date)};
    text = withYear != 0 ? time.FormatDate(eShortDate)
                         : time.FormatDate(PictureWithoutYear(time.GetDateFormatA(eShortDate, 1),
                                                              time.GetDateSeperator()));
}

long DateOfText(const CString& text) {
    if (text.IsEmpty()) return -1;
    int year = -1;
    int month = -1;
    int day = -1;
    CIntlTime time;
    time.ParseDateFromFormat(time.GetDateFormatA(eShortDate, 0), text,
                             time.GetDateSeperator().GetAt(0), year, month, day);
    if (month == -1 || day == -1) return -1;
    if (year == -1) year = CTime::GetCurrentTime().GetYear();
    return EndOfDay(FullYear(year), month, day).GetTime();
}

long ChosenDate(int choice, long current) {
    switch (static_cast<DateChoice>(choice)) {
        case DateChoice::Today:
            return StartOfToday().GetTime();
        case DateChoice::Tomorrow:
            return StartOfToday(1).GetTime();
        case DateChoice::OneWeekLater:
            return StartOfToday(7).GetTime();
        case DateChoice::Choose:
            return PickedDate(current);
        case DateChoice::NoDate:
            break;
    }
    return kMaxDate;
}

}  // namespace orvo
