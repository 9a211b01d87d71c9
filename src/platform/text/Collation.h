// Comparing text in the order of the system's locale.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <platform/Export.h>

namespace orvo {

constexpr unsigned NORM_IGNORECASE = 0x0001;
constexpr unsigned NORM_IGNORENONSPACE = 0x0002;
constexpr unsigned SORT_STRINGSORT = 0x1000;

constexpr int CSTR_LESS_THAN = 1;
constexpr int CSTR_EQUAL = 2;
constexpr int CSTR_GREATER_THAN = 3;

// Compares two texts of the system's code page by the rules of the system's locale. Hyphen and
// apostrophe are symbols with a place of their own. A length of -1 stands for text that ends in a
// zero byte.
// Returns:  CSTR_LESS_THAN, CSTR_EQUAL or CSTR_GREATER_THAN; 0 for another locale than
//           LOCALE_SYSTEM_DEFAULT and LOCALE_USER_DEFAULT, for other flags, and for a null pointer.
//           The collator is made once for each locale and thread.
// Requires: SORT_STRINGSORT, alone or with NORM_IGNORECASE, or with NORM_IGNORECASE and
//           NORM_IGNORENONSPACE.
ORVO_API int CompareStringA(unsigned locale, unsigned flags, const char* left, int leftLength,
                            const char* right, int rightLength);

// The weight of each ASCII character by its code. Texts of characters that all have a weight
// compare as CompareStringA with those flags does when their weights are compared byte by byte, a
// text that ends first before a longer one. 0 stands for a character without a weight of its own:
// it is ignored, or its place depends on its neighbours.
using AsciiWeights = std::array<std::uint8_t, 128>;

// Returns:  the weights for the system's locale, which stay until it changes; made once for each
//           locale and thread.
// Requires: flags of CompareStringA with NORM_IGNORECASE; for any other no character has a weight.
ORVO_API const AsciiWeights& AsciiWeightsFor(unsigned flags);

// Appends the sort key of a UTF-8 text: compared byte by byte, keys stand in the order that
// CompareStringA with these flags gives. A key ends in a zero byte and holds no other, so that keys
// written one after the other compare position by position, and a row of keys that is the start of
// another one comes first.
ORVO_API void AppendSortKey(unsigned flags, std::string_view utf8, std::string& key);

// Makes the sort keys of many texts with the same flags. Texts of people repeat themselves, so it
// remembers keys that it has made; for one sort, while the system's locale stays as it is.
class ORVO_API SortKeyMaker {
public:
    explicit SortKeyMaker(unsigned flags);

    // As AppendSortKey.
    void Append(std::string_view utf8, std::string& key);

private:
    struct Memory {
        std::string text;
        std::string key;
    };

    unsigned m_flags;
    std::vector<Memory> m_memory;  // each text has one place, by its hash
};

}  // namespace orvo
