// What the logic asks of the text, locale and desktop libraries: functions over text and dates.
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include <platform/Export.h>
#include <platform/text/CString.h>

namespace orvo {

// Text and locale (libraries/lingo).

// A person's name in one line. With `listForm`, the family name first: "Lee, Ann", or without the
// comma in the locales that write the family name first anyway. Without it, the reading form of the
// locale: "Ann Lee". An empty part leaves no separator. The locales that write the family name
// first are those whose CLDR person-name order is surnameFirst.
ORVO_API CString FullName(const CString& first, const CString& name, bool listForm);

// True where the text holds at least one kana or kanji.
ORVO_API bool is_kanji_or_kana_string(const char* text);

// Folds text to one form for comparison: half-width to full-width for kana and their marks,
// full-width letters, digits and signs of ASCII to half-width, katakana to hiragana. The long mark
// and what has no hiragana stay.
ORVO_API void ToFullwidthAndHira(CString& text);

// Cut to at most `limit` bytes; a character that the cut would split goes (Dec) or stays whole
// (Inc). A limit below 0 counts as 0.
ORVO_API void LeftAndValidateDec(CString& text, int limit);
ORVO_API void LeftAndValidateInc(CString& text, int limit);

// Ends the text with one backslash; a text that already ends with one is left alone. A trail byte
// is no backslash.
ORVO_API void AppendBackslash(CString& text);

// Desktop common (libraries/odcmn).

// Moves the first line of `text` into `line`, without its line end, and leaves the rest in `text`.
// A line ends at "\r\n", at "\r" or at "\n". On an empty text both end up empty.
ORVO_API void GetFirstLine(CString& text, CString& line);

// The same over a text that stays: returns the first line, and moves the view behind its end.
ORVO_API std::string_view TakeFirstLine(std::string_view& text);

// Non-zero where the text holds more than one line: something other than nothing follows the first
// line's end.
ORVO_API int IsMultiline(const CString& text);

// Moves a date of the record form by whole calendar days; the local time of day stays, also across
// a clock change.
// Returns:  non-zero on success; 0, with the date untouched, where it or the result isn't a date:
//           negative, kMaxDate (no date) or above.
ORVO_API int IncrDate(long& date, int days);

// Widgets (libraries/orvoui).

// Drops the blanks, tabs and line ends at the start of the text, then cuts it before its first
// carriage return or tab, then to at most 256 bytes without splitting a character.
ORVO_API void RemoveLeadingSpacesEx(CString& text);

}  // namespace orvo
