// Character tests and small text functions on several code pages.
// SPDX-License-Identifier: MIT
#include <set>
#include <tuple>

#include <gtest/gtest.h>

#include <platform/text/MultiByte.h>
#include <support/LocaleInForce.h>

namespace orvo {

namespace {

TEST(MultiByte, LeadBytesDependOnTheCodePage) {
    const std::tuple<unsigned, std::set<std::pair<int, int>>> rows[] = {
        {932, {{0x81, 0x9F}, {0xE0, 0xFC}}}, {65001, {{0xC2, 0xF4}}}, {1252, {}}};
    for (const auto& [page, ranges] : rows) {
        const LocaleInForce locale("en-US", page);
        for (int byte = 0; byte < 256; ++byte) {
            bool want = false;
            for (const auto& [first, last] : ranges) want |= first <= byte && byte <= last;
            EXPECT_EQ(IsDBCSLeadByte(static_cast<unsigned char>(byte)) != 0, want) << byte;
        }
    }
}

constexpr std::tuple<const char*, unsigned, unsigned, bool> kPrintRows[] = {
    {"blank", 65001, 0x20, true},
    {"tab", 65001, 0x09, false},
    {"delete", 65001, 0x7F, false},
    {"a code point", 65001, 0x1F600, true},
    {"a surrogate", 65001, 0xD800, false},
    {"beyond Unicode", 65001, 0x110000, false},
    {"no character yet", 65001, 0x0378, false},
    {"blank", 932, 0x20, true},
    {"delete", 932, 0x7F, false},
    {"half-width katakana", 932, 0xA1, true},
    {"its end", 932, 0xDF, true},
    {"a byte of no character", 932, 0xA0, false},
    {"a lead byte alone", 932, 0x81, false},
    {"kanji", 932, 0x955C, true},
    {"no trail byte", 932, 0x8131, false},
    {"an unassigned pair", 932, 0x859F, false},
    {"too large", 932, 0x18140, false},
    {"a letter of the page", 1252, 0xE4, true},
    {"a control byte of the page", 1252, 0x81, false},
    {"no 8-bit character", 1252, 0x0141, false},
};

TEST(MultiByte, WhatCanBePrintedDependsOnTheCodePage) {
    for (const auto& [why, page, character, want] : kPrintRows) {
        const LocaleInForce locale("en-US", page);
        EXPECT_EQ(_ismbcprint(character) != 0, want) << why << " on " << page;
    }
}

int Compare(const char* left, const char* right) {
    return _mbscmp(reinterpret_cast<const unsigned char*>(left),
                   reinterpret_cast<const unsigned char*>(right));
}

TEST(MultiByte, ComparisonIsByTheCodesOfCharacters) {
    const LocaleInForce japanese("ja-JP", 932);
    EXPECT_EQ(Compare("\xB1", "\x82\xA0"), -1);
    EXPECT_EQ(Compare("\x82\xA0", "\xB1"), 1);
    EXPECT_EQ(Compare("a\x82\xA0", "a\x82\xA0"), 0);
    EXPECT_EQ(Compare("a", "ab"), -1);
    EXPECT_EQ(Compare("", nullptr), 0);

    const LocaleInForce western("en-US", 1252);
    EXPECT_EQ(Compare("\xB1", "\x82\xA0"), 1);
}

constexpr std::tuple<const char*, unsigned, const char*, int, const char*> kCopyRows[] = {
    {"all of it", 65001, "abc", 9, "abc"},
    {"room for the end only", 65001, "abc", 1, ""},
    {"no character of UTF-8 is split", 65001, "aあ", 4, "a"},
    {"whole characters", 65001, "aあb", 5, "aあ"},
    {"a pair of bytes is split", 932, "a\x82\xA0", 3, "a\x82"},
    {"nothing is copied", 65001, "abc", 0, "~~~~~~~~~"},
};

TEST(MultiByte, ACopyEndsWithinItsRoom) {
    for (const auto& [why, page, source, count, want] : kCopyRows) {
        const LocaleInForce locale("en-US", page);
        char target[] = "~~~~~~~~~";
        EXPECT_EQ(lstrcpyn(target, source, count), target) << why;
        EXPECT_STREQ(target, want) << why;
        EXPECT_EQ(target[8], '~') << why;
    }
}

}  // namespace

}  // namespace orvo
