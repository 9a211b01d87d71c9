// The lines of a postal address, in the form of the language.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/text/Arrays.h>
#include <platform/text/CString.h>

namespace orvo {

// Replaces `lines` by those of the address: in the German form where the language module asks for
// it, in the Japanese form for a Japanese text on code page 932, else in the English form. Five
// empty fields leave `lines` as it is.
ORVO_API void FormatAddress(CStringArray& lines, CString address, CString city, CString state,
                            CString zipCode, CString country);

// Each adds the lines of its form at the end of `lines`. An empty field leaves nothing behind; a
// field of several lines keeps them, and takes those that would share its line apart.
ORVO_API void FormatAddressEnglish(CStringArray& lines, CString address, CString city,
                                   CString state, CString zipCode, CString country);
ORVO_API void FormatAddressJapanese(CStringArray& lines, CString address, CString city,
                                    CString state, CString zipCode, CString country);
ORVO_API void FormatAddressGerman(CStringArray& lines, CString address, CString city, CString state,
                                  CString zipCode, CString country);

}  // namespace orvo
