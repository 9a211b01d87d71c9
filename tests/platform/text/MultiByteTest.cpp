// Character tests and small text functions on several code pages.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <platform/text/MultiByte.h>
#include <support/LocaleInForce.h>

namespace orvo {

namespace {

struct ByteRow {
    const char* why;
    unsigned page, character;
    bool want;
};

constexpr ByteRow kLeadRows[] = {
    {"below the first range", 932, 0x80, false},
    {"first range", 932, 0x81, true},
    {"its end", 932, 0x9F, true},
    {"half-width katakana", 932, 0xB1, false},
    {"second range", 932, 0xE0, true},
    {"its end", 932, 0xFC, true},
    {"behind it", 932, 0xFD, false},
    {"a trail byte of UTF-8", 65001, 0xBF, false},
    {"never in UTF-8", 65001, 0xC1, false},
    {"two bytes", 65001, 0xC2, true},
    {"four bytes", 65001, 0xF4, true},
    {"beyond Unicode", 65001, 0xF5, false},
    {"8-bit pages have none", 1252, 0x81, false},
};

TEST(MultiByte, LeadBytesDependOnTheCodePage) {
    for (const ByteRow& row : kLeadRows) {
        const LocaleInForce locale("en-US", row.page);
        EXPECT_EQ(IsDBCSLeadByte(static_cast<unsigned char>(row.character)) != 0, row.want)
            << row.why;
    }
}

constexpr ByteRow kPrintRows[] = {
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
    for (const ByteRow& row : kPrintRows) {
        const LocaleInForce locale("en-US", row.page);
        EXPECT_EQ(_ismbcprint(row.character) != 0, row.want) << row.why << " on " << row.page;
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

struct CopyRow {
    const char* why;
    unsigned page;
    const char* source;
    int count;
    const char* want;
};
constexpr CopyRow kCopyRows[] = {
    {"all of it", 65001, "abc", 9, "abc"},
    {"room for the end only", 65001, "abc", 1, ""},
    {"no character of UTF-8 is split", 65001, "aあ", 4, "a"},
    {"whole characters", 65001, "aあb", 5, "aあ"},
    {"a pair of bytes is split", 932, "a\x82\xA0", 3, "a\x82"},
    {"nothing is copied", 65001, "abc", 0, "~~~~~~~~~"},
};

TEST(MultiByte, ACopyEndsWithinItsRoom) {
    for (const CopyRow& row : kCopyRows) {
        const LocaleInForce locale("en-US", row.page);
        char target[] = "~~~~~~~~~";
        EXPECT_EQ(lstrcpyn(target, row.source, row.count), target) << row.why;
        EXPECT_STREQ(target, row.want) << row.why;
        EXPECT_EQ(target[8], '~') << row.why;
    }
}

}  // namespace

}  // namespace orvo
