// The two code pages under which every rule on characters must hold.
// SPDX-License-Identifier: MIT
#pragma once

#include <ostream>

#include <support/LocaleInForce.h>

namespace orvo {

struct LocaleCase {
    const char* tag;
    unsigned codePage;
};
constexpr LocaleCase kBothCodePages[] = {{"en-US", 65001}, {"ja-JP", 932}};

inline void PrintTo(const LocaleCase& locale, std::ostream* out) {
    *out << locale.tag << ' ' << locale.codePage;
}

}  // namespace orvo
