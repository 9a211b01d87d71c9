// A person's name in the order of the language.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <contracts/TextServices.h>
#include <support/LocaleInForce.h>

namespace orvo {

namespace {

struct NameRow {
    const char *why, *tag, *first, *name, *list, *reading;
};
constexpr NameRow kNameRows[] = {
    {"family name first in a list", "en-US", "Ann", "Lee", "Lee, Ann", "Ann Lee"},
    {"no first name", "en-US", "", "Lee", "Lee", "Lee"},
    {"no family name", "en-US", "Ann", "", "Ann", "Ann"},
    {"no name", "en-US", "", "", "", ""},
    {"Hungarian", "hu-HU", "Anna", "Nagy", "Nagy Anna", "Nagy Anna"},
    {"Japanese, on its own code page", "ja-JP", "\x89\xD4", "\x8E\x52", "\x8E\x52 \x89\xD4",
     "\x8E\x52 \x89\xD4"},
    {"no separator at the end", "hu-HU", "", "Nagy", "Nagy", "Nagy"},
    {"Cantonese", "yue-HK", "Tai Man", "Chan", "Chan Tai Man", "Chan Tai Man"},
};

TEST(FullName, FollowsTheLanguageAndLeavesNoSeparatorBesideAnEmptyPart) {
    for (const NameRow& row : kNameRows) {
        const LocaleInForce locale(row.tag);
        EXPECT_EQ(FullName(row.first, row.name, true), row.list) << row.why;
        EXPECT_EQ(FullName(row.first, row.name, false), row.reading) << row.why;
    }
}

}  // namespace

}  // namespace orvo
