// Comparing text: the flags, the languages, and keys that give the same order.
// SPDX-License-Identifier: MIT
#include <array>
#include <random>
#include <thread>

#include <gtest/gtest.h>

#include <platform/text/CodePage.h>
#include <platform/text/Collation.h>
#include <platform/text/SystemText.h>
#include <support/LocaleInForce.h>

namespace orvo {

namespace {

constexpr unsigned kExact = SORT_STRINGSORT;
constexpr unsigned kNoCase = SORT_STRINGSORT | NORM_IGNORECASE;
constexpr unsigned kBase = SORT_STRINGSORT | NORM_IGNORECASE | NORM_IGNORENONSPACE;

int Compare(unsigned flags, std::string_view left, std::string_view right) {
    const CString leftText = SystemText(left);
    const CString rightText = SystemText(right);
    return CompareStringA(LOCALE_USER_DEFAULT, flags, leftText, leftText.GetLength(), rightText,
                          rightText.GetLength());
}

struct OrderRow {
    const char *why, *tag, *left, *right;
    int exact, noCase, base;
};
constexpr OrderRow kOrderRows[] = {
    {"a hyphen has its place", "en-US", "co-op", "coop", 1, 1, 1},
    {"so has an apostrophe", "en-US", "O'Neil", "oneil", 1, 1, 1},
    {"lower case first", "en-US", "coop", "coOp", 1, 2, 2},
    {"an accent counts with two of the flag sets", "en-US", "resume", "résumé", 1, 1, 2},
    {"empty text first", "en-US", "", " ", 1, 1, 1},
    {"signs before digits", "en-US", "_", "1", 1, 1, 1},
    {"letters before kana", "en-US", "z", "あ", 1, 1, 1},
    {"kana before kanji", "ja-JP", "ん", "亜", 1, 1, 1},
    {"hiragana before katakana", "ja-JP", "あ", "ア", 1, 2, 2},
    {"the voiced mark is an accent", "ja-JP", "か", "が", 1, 1, 2},
    {"the locale decides", "sv-SE", "ö", "z", 3, 3, 3},
    {"as here", "de-DE", "ö", "z", 1, 1, 1},
    {"beyond the first plane", "en-US", "😀", "a", 1, 1, 1},
};

TEST(Collation, FollowsFlagsAndLocale) {
    for (const OrderRow& row : kOrderRows) {
        for (const unsigned page : {kUtf8CodePage, kJapaneseCodePage}) {
            const LocaleInForce locale(row.tag, page);
            EXPECT_EQ(Compare(kExact, row.left, row.right), row.exact) << row.why << page;
            EXPECT_EQ(Compare(kNoCase, row.left, row.right), row.noCase) << row.why << page;
            EXPECT_EQ(Compare(kBase, row.left, row.right), row.base) << row.why << page;
        }
    }
}

TEST(Collation, WhatIsNotSupportedGivesZero) {
    EXPECT_EQ(Compare(0, "a", "a"), 0);
    EXPECT_EQ(Compare(NORM_IGNORECASE, "a", "a"), 0);
    EXPECT_EQ(Compare(SORT_STRINGSORT | NORM_IGNORENONSPACE, "a", "a"), 0);
    EXPECT_EQ(CompareStringA(0x0409, kExact, "a", 1, "a", 1), 0);
    EXPECT_EQ(CompareStringA(LOCALE_SYSTEM_DEFAULT, kExact, nullptr, 0, "a", 1), 0);
    EXPECT_EQ(CompareStringA(LOCALE_SYSTEM_DEFAULT, kExact, "a", 1, nullptr, -1), 0);
}

TEST(Collation, ALengthOfMinusOneEndsAtTheZeroByte) {
    EXPECT_EQ(CompareStringA(LOCALE_SYSTEM_DEFAULT, kExact, "ab", -1, "abc", 2), CSTR_EQUAL);
    EXPECT_EQ(CompareStringA(LOCALE_SYSTEM_DEFAULT, kExact, "ab", 1, "a", -1), CSTR_EQUAL);
}

TEST(Collation, EachThreadNoticesANewLocale) {
    const LocaleInForce swedish("sv-SE");
    int before = Compare(kExact, "ö", "z");
    const LocaleInForce german("de-DE");
    int elsewhere = 0;
    std::thread([&] { elsewhere = Compare(kExact, "ö", "z"); }).join();

    EXPECT_EQ(before, CSTR_GREATER_THAN);
    EXPECT_EQ(Compare(kExact, "ö", "z"), CSTR_LESS_THAN);
    EXPECT_EQ(elsewhere, CSTR_LESS_THAN);
}

constexpr std::array<std::string_view, 40> kPieces = {
    "a",  "A",  "b",  "B",  "z",  "é",  "e",  "E\u0301", "ö",  "oe", "ß",  "ss",     "ñ",  "-",
    "'",  ".",  " ",  "1",  "10", "2",  "あ", "ア",      "ｱ",  "か", "が", "ｶﾞ",     "っ", "つ",
    "ー", "は", "ハ", "亜", "山", "髙", "々", "😀",       "𠮷", "я",  "_",  "\u3000",
};

std::string RandomText(std::mt19937& random) {
    std::string text;
    for (std::size_t left = random() % 5; left > 0; --left)
        text += kPieces[random() % kPieces.size()];
    return text;
}

std::string KeyOf(unsigned flags, std::string_view utf8) {
    std::string key;
    AppendSortKey(flags, utf8, key);
    return key;
}

int Sign(int number) {
    return number < 0 ? CSTR_LESS_THAN : number > 0 ? CSTR_GREATER_THAN : CSTR_EQUAL;
}

TEST(Collation, KeysStandInTheOrderOfComparison) {
    std::mt19937 random(11);
    for (const char* tag : {"en-US", "ja-JP", "de-DE"}) {
        for (const unsigned page : {kUtf8CodePage, kJapaneseCodePage}) {
            const LocaleInForce locale(tag, page);
            for (int round = 0; round < 3000; ++round) {
                const std::string left = RandomText(random);
                const std::string right = RandomText(random);
                for (const unsigned flags : {kExact, kNoCase, kBase})
                    ASSERT_EQ(Sign(KeyOf(flags, left).compare(KeyOf(flags, right))),
                              Compare(flags, left, right))
                        << tag << ' ' << page << ' ' << flags << ": " << left << " / " << right;
            }
        }
    }
}

TEST(Collation, BrokenTextStandsWhereItsKeyStands) {
    const CString texts[] = {"a", "\xE3\x81", "\xE3\x81\x82", "\xFF", "\xF0\x9F\x98", "\xC0z"};
    for (const CString& left : texts) {
        for (const CString& right : texts) {
            EXPECT_EQ(Sign(KeyOf(kExact, ToUtf8(left)).compare(KeyOf(kExact, ToUtf8(right)))),
                      CompareStringA(LOCALE_USER_DEFAULT, kExact, left, -1, right, -1));
        }
    }
}

TEST(Collation, AKeyEndsInItsOnlyZeroByteHoweverLong) {
    for (const std::size_t length : {0u, 1u, 100u, 10000u}) {
        std::string text;
        for (std::size_t i = 0; i < length; ++i) text += i % 2 ? "é" : "山";
        const std::string key = KeyOf(kExact, text);
        EXPECT_EQ(key.find('\0'), key.size() - 1) << length;
        EXPECT_LT(KeyOf(kExact, text).compare(KeyOf(kExact, text + "x")), 0) << length;
    }
}

}  // namespace

}  // namespace orvo
