// Tests of date pictures made from CLDR's patterns.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <libraries/odcmn/DatePicture.h>

namespace orvo {
namespace {

struct PatternRow {
    const char *why, *pattern;
    bool japanese;
    const char *picture, *separator;
};

constexpr PatternRow kPatterns[] = {
    {"a full year has four letters", "M/d/y", false, "M/d/yyyy", "/"},
    {"a short year has two", "dd.MM.yy", false, "dd.MM.yy", "."},
    {"a separator keeps its blank", "d. M. y", false, "d. M. yyyy", ". "},
    {"text without field letters loses its quotes", "d.MM.yy\u202F'г'.", false, "d.MM.yy г.", "."},
    {"other text keeps them", "d 'de' MMMM 'de' y", false, "d' de 'MMMM' de 'yyyy", " de "},
    {"an apostrophe is doubled", "d 'o''clock' M", false, "d o''clock M", " o'clock "},
    {"marks of direction go", "d\u200F/M\u200F/y", false, "d/M/yyyy", "/"},
    {"standalone months are months", "d LLLL y", false, "d MMMM yyyy", " "},
    {"the era stands before a blank", "GGGGGy/M/d", true, "gg y/M/d", "/"},
    {"it has one already", "M/d G y", true, "M/d gg y", "/"},
    {"it may come last", "dd.MM.yy GGGGG", true, "dd.MM.yy gg", "."},
    {"it goes with other calendars", "d MMMM G y", false, "d MMMM yyyy", " "},
    {"nothing between the fields", "yMMdd", false, "yyyyMMdd", "/"},
};

TEST(DatePicture, APatternBecomesAPicture) {
    for (const PatternRow& row : kPatterns) {
        const std::string picture = PictureOfPattern(row.pattern, row.japanese);

        EXPECT_EQ(picture, row.picture) << row.why;
        EXPECT_EQ(SeparatorOf(SplitPicture(picture)), row.separator) << row.why;
    }
}

}  // namespace
}  // namespace orvo
