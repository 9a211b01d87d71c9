// The text of a heading: sound, damaged and hostile.
// SPDX-License-Identifier: MIT
#include <random>
#include <string>
#include <tuple>

#include <climits>
#include <gtest/gtest.h>

#include <orvoshare/text/HeadingText.h>

namespace orvo {

void PrintTo(const Heading& heading, std::ostream* out) {
    *out << FormatHeading(heading).View();
}

namespace {

using namespace std::string_literals;

TEST(HeadingText, WhatIsWrittenReadsAsItWas) {
    const std::tuple<const char*, const char*, Heading> rows[] = {
        {"shown and hidden", "(2) 0 180 3 110 (1) 1 90", {{{0, 180}, {3, 110}}, {{1, 90}}}},
        {"nothing hidden", "(1) 0 8 (0)", {{{0, 8}}, {}}},
        {"a count of two digits",
         "(1) 272 4000 (10) 1 7 1 7 1 7 1 7 1 7 1 7 1 7 1 7 1 7 1 7",
         {{{272, 4000}}, std::vector(10, HeadingColumn{1, 7})}},
        {"any int", "(1) -1 2147483647 (1) -2147483648 0", {{{-1, INT_MAX}}, {{INT_MIN, 0}}}},
    };
    for (const auto& [why, text, heading] : rows) {
        EXPECT_EQ(FormatHeading(heading), text) << why;
        EXPECT_EQ(ParseHeading(text), heading) << why;
    }
}

TEST(HeadingText, AnyBytesAreReadByPlaceAndNeverBeyondTheEnd) {
    const std::tuple<const char*, std::string, Heading> rows[] = {
        {"empty", "", {}},
        {"one byte, which is skipped", "1", {}},
        {"no number in the first place", "(x2 0 200", {}},
        {"a count of 0 leaves the rest alone", "(0) (1) 3 90", {}},
        {"signs aren't compared", "[2} 0/200;3x90:<1] 1=80", {{{0, 200}, {3, 90}}, {{1, 80}}}},
        {"no sign: a digit is passed", "12) 0 200 3 90 (0)", {{{0, 200}, {3, 90}}, {}}},
        {"a second blank before a number is white space", "(1)  0\t\n 200 (0)", {{{0, 200}}, {}}},
        {"no number is 0, and moves one byte on", "(2)abcd", {{{0, 0}, {0, 0}}, {}}},
        {"cut after the count", "(2)", {}},
        {"cut after an id: the whole pair goes", "(2) 0 200 3", {{{0, 200}}, {}}},
        {"cut before the hidden columns", "(1) 0 200", {{{0, 200}}, {}}},
        {"cut among the hidden columns", "(1) 0 200 (2) 1 80 2", {{{0, 200}}, {{1, 80}}}},
        {"a huge count ends with the text", "(2147483647) 0 200", {{{0, 200}}, {}}},
        {"as does one that no int holds", "(99999999999999999999) 0 200", {{{0, 200}}, {}}},
        {"nor these numbers", "(1) 4294967296 -99999999999999999999", {{{INT_MAX, INT_MIN}}, {}}},
        {"a zero byte is as any other", "(2) 0\000200\0003\00090 (0)"s, {{{0, 200}, {3, 90}}, {}}},
        {"what follows the hidden columns is left alone", "(1) 0 200 (0) 7 8 9", {{{0, 200}}, {}}},
    };
    for (const auto& [why, text, heading] : rows) {
        EXPECT_EQ(ParseHeading(CString(text)), heading) << why;
    }
}

TEST(HeadingText, RandomBytesGiveNoMoreThanTheyHoldAndWhatTheyGiveReadsAgain) {
    constexpr std::string_view kBytes = "0123456789()- \t\n+\0\xFFx";
    std::mt19937 random(1);
    for (int round = 0; round < 20000; ++round) {
        std::string text(random() % 60, '\0');
        for (char& byte : text) byte = kBytes[random() % kBytes.size()];
        if (round % 2 == 0) text.insert(0, "(3) 1 2");

        const Heading heading = ParseHeading(CString(text));

        EXPECT_LE(2 * (heading.shown.size() + heading.hidden.size()), text.size()) << text;
        if (heading.shown.empty()) continue;
        EXPECT_EQ(ParseHeading(FormatHeading(heading)), heading) << text;
    }
}

}  // namespace
}  // namespace orvo
