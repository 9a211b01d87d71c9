// Reading pictures, sound ones and others.
// SPDX-License-Identifier: MIT
#include <random>

#include <gtest/gtest.h>

#include <platform/window/pictures/XpmPicture.h>

namespace orvo {
namespace {

constexpr std::string_view kArrow = R"(/* XPM */
/* Its "ground" is clear. */
static char *arrow[] = {
/* columns rows colours chars-per-pixel */
"3 2 4 2 1 0",
"   c None",
"r. c #FF8000",
"b. m white c blue g black",
"x. c #123400005678",
"  r.  ",
"b.x.b."
};
)";

TEST(XpmPicture, APaintProgramsFileIsRead) {
    const auto picture = ReadXpmPicture(kArrow);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->pixels.Size(), (CSize{3, 2}));
    EXPECT_EQ(picture->hotSpot, (CPoint{1, 0}));
    EXPECT_EQ(picture->pixels.GetPixel({0, 0}), picture->clear);
    EXPECT_EQ(picture->pixels.GetPixel({1, 0}), RGB(255, 128, 0));
    EXPECT_EQ(picture->pixels.GetPixel({0, 1}), RGB(0, 0, 255));
    EXPECT_EQ(picture->pixels.GetPixel({1, 1}), RGB(0x12, 0, 0x56));
}

TEST(XpmPicture, TheClearColourIsNoneThatIsDrawn) {
    const auto picture = ReadXpmPicture("/* XPM */\"2 1 2 1\",\"m c magenta\",\"n c none\",\"mn\"");
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->pixels.GetPixel({0, 0}), RGB(255, 0, 255));
    EXPECT_EQ(picture->pixels.GetPixel({1, 0}), picture->clear);
    EXPECT_NE(picture->clear, RGB(255, 0, 255));
    EXPECT_EQ(picture->hotSpot, std::nullopt);
}

TEST(XpmPicture, WhatIsNoSoundPictureGivesNothing) {
    struct Row {
        const char *why, *text;
    };
    constexpr Row kRows[] = {
        {"empty", ""},
        {"another form of picture", "\x89PNG\r\n"},
        {"no head", "\"1 1 1 1\",\"a c red\",\"a\""},
        {"no values", "/* XPM */ static char *x[] = {};"},
        {"too few values", "/* XPM */\"1 1 1\",\"a c red\",\"a\""},
        {"one value of a hot spot", "/* XPM */\"1 1 1 1 0\",\"a c red\",\"a\""},
        {"a value that isn't a number", "/* XPM */\"1 1 1 1x\",\"a c red\",\"a\""},
        {"no width", "/* XPM */\"0 1 1 1\",\"a c red\",\"\""},
        {"a height below 0", "/* XPM */\"1 -1 1 1\",\"a c red\",\"a\""},
        {"names of no length", "/* XPM */\"1 1 1 0\",\" c red\",\"\""},
        {"too wide", "/* XPM */\"5000 1 1 1\",\"a c red\",\"a\""},
        {"beyond any number", "/* XPM */\"99999999999 1 1 1\",\"a c red\",\"a\""},
        {"a large picture that isn't there", "/* XPM */\"4096 4096 1 8\",\"a c red\",\"a\""},
        {"fewer rows than told", "/* XPM */\"1 2 1 1\",\"a c red\",\"a\""},
        {"more rows than told", "/* XPM */\"1 1 1 1\",\"a c red\",\"a\",\"a\""},
        {"a row too short", "/* XPM */\"2 1 1 1\",\"a c red\",\"a\""},
        {"a row too long", "/* XPM */\"1 1 1 1\",\"a c red\",\"aa\""},
        {"a pixel of no colour", "/* XPM */\"1 1 1 1\",\"a c red\",\"b\""},
        {"a name twice", "/* XPM */\"1 1 2 1\",\"a c red\",\"a c blue\",\"a\""},
        {"a name cut short", "/* XPM */\"1 1 1 4\",\"a c\",\"aaaa\""},
        {"no colour", "/* XPM */\"1 1 1 1\",\"a c\",\"a\""},
        {"a colour for grey screens alone", "/* XPM */\"1 1 1 1\",\"a g red\",\"a\""},
        {"an unknown colour", "/* XPM */\"1 1 1 1\",\"a c reddish\",\"a\""},
        {"a wrong digit", "/* XPM */\"1 1 1 1\",\"a c #FF00G0\",\"a\""},
        {"a sign among the digits", "/* XPM */\"1 1 1 1\",\"a c #FF-1+2\",\"a\""},
        {"five digits", "/* XPM */\"1 1 1 1\",\"a c #FF000\",\"a\""},
        {"a text without end", "/* XPM */\"1 1 1 1\",\"a c red\",\"a"},
        {"a comment without end", "/* XPM */\"1 1 1 1\",\"a c red\",/*\"a\""},
    };
    for (const Row& row : kRows) EXPECT_FALSE(ReadXpmPicture(row.text)) << row.why;
    EXPECT_TRUE(ReadXpmPicture("/* XPM */\"1 1 1 1\",\"a c red\",\"a\""));
}

TEST(XpmPicture, ADamagedFileIsRefusedOrGivesAPictureNoLargerThanItself) {
    std::mt19937 random(20270111);
    int read = 0;
    for (int round = 0; round < 20'000; ++round) {
        std::string damaged(kArrow);
        for (unsigned changes = 1 + random() % 4; changes > 0; --changes) {
            damaged[random() % damaged.size()] = static_cast<char>(random());
        }
        const auto picture = ReadXpmPicture(damaged);
        if (!picture) continue;
        ++read;
        const CSize size = picture->pixels.Size();
        ASSERT_LE(size.cx * size.cy, static_cast<int>(damaged.size())) << damaged;
    }
    EXPECT_GT(read, 0) << "damage in a comment does no harm";
}

}  // namespace
}  // namespace orvo
