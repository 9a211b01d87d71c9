// Comparison of texts, its keys and their order, and the weights of ASCII characters.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <numeric>
#include <random>
#include <thread>
#include <tuple>

#include <gmock/gmock.h>

#include <platform/text/CodePage.h>
#include <platform/text/Collation.h>
#include <platform/text/KeySort.h>
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

// The results of the three sets of flags stand behind the texts.
constexpr std::tuple<const char*, const char*, const char*, const char*, int, int, int> kOrders[] =
    {
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
    for (const auto& [why, tag, left, right, exact, noCase, base] : kOrders) {
        for (const unsigned page : {kUtf8CodePage, kJapaneseCodePage}) {
            const LocaleInForce locale(tag, page);
            EXPECT_EQ(Compare(kExact, left, right), exact) << why << page;
            EXPECT_EQ(Compare(kNoCase, left, right), noCase) << why << page;
            EXPECT_EQ(Compare(kBase, left, right), base) << why << page;
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
    EXPECT_EQ(Compare(kExact, "ö", "z"), CSTR_GREATER_THAN);
    const LocaleInForce german("de-DE");
    EXPECT_EQ(Compare(kExact, "ö", "z"), CSTR_LESS_THAN);
    std::thread([] { EXPECT_EQ(Compare(kExact, "ö", "z"), CSTR_LESS_THAN); }).join();
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

std::string RandomAscii(std::mt19937& random) {
    constexpr std::string_view kUsual = "aAbBcCdDhHiIjJlLsSyYzZ019 -',.";
    std::string text;
    for (std::size_t length = random() % 6; length > 0; --length) {
        text += random() % 10 == 0 ? static_cast<char>(random() % 128)
                                   : kUsual[random() % kUsual.size()];
    }
    return text;
}

bool HasWeights(const AsciiWeights& weights, std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [&](unsigned char each) { return weights[each] != 0; });
}

std::string WeightsOf(const AsciiWeights& weights, std::string text) {
    for (char& each : text) each = static_cast<char>(weights[static_cast<std::size_t>(each)]);
    return text;
}

// Languages that read two letters as one, tell letters by accents alone, or sort numbers by value
// are among them.
TEST(AsciiWeights, CompareTextsAsTheLocaleDoes) {
    constexpr const char* kTags[] = {"en-US", "sv-SE",           "cs-CZ",          "hu-HU", "lt-LT",
                                     "da-DK", "cy-GB",           "et-EE",          "br-FR", "fr-CA",
                                     "ja-JP", "de-DE-u-kn-true", "en-US-u-kc-true"};
    std::mt19937 random(3);
    for (const char* tag : kTags) {
        const LocaleInForce locale(tag, 65001);
        for (const unsigned flags : {kNoCase, kBase}) {
            const AsciiWeights& weights = AsciiWeightsFor(flags);
            for (int i = 0; i < 3000; ++i) {
                const std::string left = RandomAscii(random);
                const std::string right = RandomAscii(random);
                if (!HasWeights(weights, left) || !HasWeights(weights, right)) continue;
                ASSERT_EQ(Sign(WeightsOf(weights, left).compare(WeightsOf(weights, right))),
                          Compare(flags, left, right))
                    << tag << " <" << left << "> <" << right << ">";
            }
        }
    }
}

TEST(AsciiWeights, AreWithheldFromWhatDoesNotStandAlone) {
    const std::tuple<const char*, const char*, unsigned, const char*, const char*> rows[] = {
        {"all that names are made of", "en-US", kNoCase, "azAZ09 ,.-'", "\x01\x7F"},
        {"on Japanese systems too", "ja-JP", kBase, "azAZ09 ,.-'", "\x01\x7F"},
        {"case counts", "en-US", kExact, "", "ab"},
    };
    for (const auto& [why, tag, flags, with, without] : rows) {
        const LocaleInForce locale(tag);
        const AsciiWeights& weights = AsciiWeightsFor(flags);
        EXPECT_TRUE(HasWeights(weights, with)) << why;
        for (const char each : std::string(without)) EXPECT_FALSE(HasWeights(weights, {&each, 1}));
    }
}

using Key = std::vector<std::string>;  // the parts

// Many keys begin with others, and the bytes are the least and the greatest.
TEST(KeySort, EqualsAStableSortOnRandomKeys) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        std::vector<Key> keys(random() % 200);
        for (Key& key : keys) {
            key.resize(random() % 4);
            for (std::string& part : key) {
                part.resize(1 + random() % 12);
                for (char& byte : part) byte = random() % 8 == 0 ? '\xFF' : '\0';
            }
        }
        std::vector<std::uint32_t> expected(keys.size());
        std::iota(expected.begin(), expected.end(), 0u);
        std::stable_sort(expected.begin(), expected.end(),
                         [&](auto left, auto right) { return keys[left] < keys[right]; });

        const auto addPart = [&](std::uint32_t row, std::size_t part, std::string& key) {
            if (part < keys[row].size()) key += keys[row][part];
        };
        EXPECT_EQ(KeySortedRows(keys.size(), addPart), expected) << "round " << round;
    }
}

TEST(KeySort, APartIsAskedForOnlyWhereTheOnesBeforeItAreEqual) {
    std::vector<int> asked(3);
    KeySortedRows(3, [&](std::uint32_t row, std::size_t part, std::string& key) {
        ++asked[row];
        if (part == 0) key += row == 2 ? 'b' : 'a';
    });
    EXPECT_THAT(asked, testing::ElementsAre(2, 2, 1));
}

}  // namespace
}  // namespace orvo
