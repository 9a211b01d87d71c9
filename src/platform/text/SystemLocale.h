// The locale of the system: language, country and code page.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <platform/Export.h>

namespace orvo {

// Taken from the user's environment (LC_ALL, LC_CTYPE, LANG, the first that is set) at the first
// use; "C" and "POSIX" stand for en-US. A host or a test may set another one; that must happen
// while no other thread uses text. What depends on the locale (collators, date pictures) notices by
// `Generation`.
class ORVO_API SystemLocale {
public:
    // The BCP 47 tag in force, such as "de-DE" or "ja-JP-u-ca-japanese".
    static const std::string& Tag();

    // The language subtag of the tag, in lower case, such as "de".
    static const std::string& Language();

    // Sets language and code page; a code page of 0 stands for the language's own: 932 for
    // Japanese, else 65001.
    // Returns:  false, and changes nothing, where the tag is no well-formed BCP 47 tag or there is
    //           no such page.
    static bool Set(std::string_view tag, unsigned codePage = 0);

    // Goes back to the environment.
    static void Reset();

    // Changes with each Set and Reset.
    static unsigned Generation();
};

// The number of the code page of all CString text: 65001, or 932 where the user's language is
// Japanese, or what a host has set.
ORVO_API unsigned GetACP();

// Locale identifiers and the one kind of information that is asked for.
constexpr unsigned LOCALE_USER_DEFAULT = 0x0400;
constexpr unsigned LOCALE_SYSTEM_DEFAULT = 0x0800;
constexpr unsigned LOCALE_ICALENDARTYPE = 0x1009;

// The user's setting as text.
// Returns:  the bytes written, the ending zero included; with a `size` of 0, the bytes needed; 0 on
//           failure.
// Fails:    for an unknown locale or kind, and for a buffer too small; the buffer is then
//           untouched. The calendar types are 1 Gregorian, 3 Japanese era, 4 Taiwan, 5 Korea, 6
//           Hijri, 7 Thai, 8 Hebrew, as the platform numbers them.
ORVO_API int GetLocaleInfoA(unsigned locale, unsigned kind, char* buffer, int size);

}  // namespace orvo
