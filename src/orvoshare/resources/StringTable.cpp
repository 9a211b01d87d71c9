// The module's own texts, by their numbers.
// SPDX-License-Identifier: MIT
#include <array>

#include <orvoshare/resources/StringTable.h>

namespace orvo {
namespace {

struct NumberedString {
    unsigned number;
    const char* text;
};

constexpr std::array<NumberedString, 1> kEnglish{{
    {kStringUnnamed, "-Unnamed-"},
}};

}  // namespace

CString ModuleString(unsigned number) {
    for (const NumberedString& row : kEnglish) {
        if (row.number == number) return row.text;
    }
    return {};
}

}  // namespace orvo
