// Dates between the two forms of the system, and checks of them.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/text/CString.h>

namespace orvo {

// A C date is a calendar time in seconds, -1 for no date; a Basic date ("Vb") is the number of a
// COleDateTime. The range of the system goes from 1970-01-01 to the end of 2031, in local time.

// The C date at which the local clock shows the Basic date, rounded to the second, whatever its
// range; all bits set for a number that is no date.
ORVO_API unsigned long Vb2CDateHelper(double date);

// What the local clock shows at the C date, as a Basic date; 0 where COleDateTime has no such date.
ORVO_API double C2VbDateHelper(long date);

// 1 where the C date can be broken down into local time, else 0.
ORVO_API int IsValidCDate(long date);

// 1 where the C date is valid and in the range, else 0.
ORVO_API int IsDateWithOrvoRange(long date);

// As Vb2CDateHelper, with all bits set for a date outside the range, too.
ORVO_API unsigned long OrvoVb2CDate(double date);

// Reads the year out of a date text in the short format of the user's locale, and checks whether it
// lies in the range. A field without a number leaves `year` as it was, and that year is judged.
// With the Japanese calendar the year is one of an era, and stays so: 1 to 43 Heisei, or 45 to 63
// Showa. Which of the two counts is kept from call to call, whatever era the text names: at first
// Heisei; year 63 changes over to Showa, and year 1 back. With any other calendar only a year field
// of four bytes is checked. Not to be used from several threads at once.
// Returns:  1 when the year is accepted.
// Fails:    with 0 and `year` 0; but 1752 gives 1970, and 9999 gives 2031. Also where the format
//           has an era and the text names neither of the two by its first character.
ORVO_API int GetYearFromDateString(CString text, int& year);

}  // namespace orvo
