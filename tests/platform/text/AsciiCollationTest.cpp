// The weights of ASCII characters give the order of CompareStringA.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include <platform/text/Collation.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

constexpr unsigned kCase = SORT_STRINGSORT | NORM_IGNORECASE;
constexpr unsigned kCaseAndAccents = kCase | NORM_IGNORENONSPACE;

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
                       [&](char each) { return weights[static_cast<std::size_t>(each)] != 0; });
}

std::string WeightsOf(const AsciiWeights& weights, std::string text) {
    for (char& each : text) each = static_cast<char>(weights[static_cast<std::size_t>(each)]);
    return text;
}

int Sign(int number) {
    return (number > 0) - (number < 0);
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
        for (const unsigned flags : {kCase, kCaseAndAccents}) {
            const AsciiWeights& weights = AsciiWeightsFor(flags);
            for (int i = 0; i < 3000; ++i) {
                const std::string left = RandomAscii(random);
                const std::string right = RandomAscii(random);
                if (!HasWeights(weights, left) || !HasWeights(weights, right)) continue;
                ASSERT_EQ(Sign(WeightsOf(weights, left).compare(WeightsOf(weights, right))),
                          CompareStringA(LOCALE_SYSTEM_DEFAULT, flags, left.data(),
                                         static_cast<int>(left.size()), right.data(),
                                         static_cast<int>(right.size())) -
                              CSTR_EQUAL)
                    << tag << " <" << left << "> <" << right << ">";
            }
        }
    }
}

TEST(AsciiWeights, AreWithheldFromWhatDoesNotStandAlone) {
    struct Row {
        const char *why, *tag;
        unsigned flags;
        const char *with, *without;
    };
    constexpr Row kRows[] = {
        {"all that names are made of", "en-US", kCase, "azAZ09 ,.-'", "\x01\x7F"},
        {"on Japanese systems too", "ja-JP", kCaseAndAccents, "azAZ09 ,.-'", "\x01\x7F"},
        {"ch is a letter", "cs-CZ", kCaseAndAccents, "ab", "chCH"},
        {"i and y differ as an accent does", "lt-LT", kCase, "ab", "iy"},
        {"numbers go by their value", "en-US-u-kn-true", kCase, "ab", "09"},
        {"case counts", "en-US", SORT_STRINGSORT, "", "ab"},
    };
    for (const Row& row : kRows) {
        const LocaleInForce locale(row.tag);
        const AsciiWeights& weights = AsciiWeightsFor(row.flags);
        EXPECT_TRUE(HasWeights(weights, row.with)) << row.why;
        for (const char each : std::string_view(row.without)) {
            EXPECT_EQ(weights[static_cast<std::size_t>(each)], 0) << row.why << ": " << each;
        }
    }
}

}  // namespace
}  // namespace orvo
