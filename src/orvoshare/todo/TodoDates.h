// The dates of to-dos: when one is due, and how a date is shown, typed and chosen.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/text/CString.h>

namespace orvo {

// The choices of the date pop-up, from 0.
enum class DateChoice { Today = 0, Tomorrow = 1, OneWeekLater = 2, NoDate = 3, Choose = 4 };

// 1 where the date lies before the end of the local day of today, else 0.
ORVO_API int IsDueToday(long date);

// 1 where the date lies before the end of the local day before today, else 0. The calendar decides
// which day that is, also where a clock change makes a day shorter or longer.
ORVO_API int IsDueYesterdayOrEarlier(long date);

class CToDoRecord;

// True for a to-do that isn't completed and whose start lies in the future.
ORVO_API bool IsUnstarted(const CToDoRecord& record);

// The date as text by the user's locale, without its year where `withYear` is 0; empty for no date.
ORVO_API void DateText(long date, CString& text, int withYear);

// The date of a typed text, at 23:59:59 local time; -1 for a text that is empty or can't be read as
// a date. Where the year is missing it is the present one; the years below 38 mean 2000 to 2037,
// those below 100 the ones of 1900, and all are held between 1970 and 2038.
ORVO_API long DateOfText(const CString& text);

// The date that a choice stands for, at 00:00:00 local time; kMaxDate for no date and for any other
// choice; -1 where the day picker, which begins at `current`, was cancelled.
ORVO_API long ChosenDate(int choice, long current);

}  // namespace orvo
