// The one-line texts that name a person.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <orvoshare/text/NameText.h>
#include <platform/text/SystemText.h>
#include <support/AddressFixture.h>
#include <support/CodePages.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

using enum AddressField;

class NameText : public testing::TestWithParam<LocaleCase> {
protected:
    LocaleInForce locale{GetParam().tag, GetParam().codePage};
    AddressFixture addresses;
};
INSTANTIATE_TEST_SUITE_P(BothCodePages, NameText, testing::ValuesIn(kBothCodePages));

TEST_P(NameText, LeadingSpacesGoAndTheFirstReturnOrTabCuts) {
    struct Row {
        const char *why, *in, *want;
    };
    constexpr Row kRows[] = {
        {"blank, return, feed and tab go from the start", "  \r\n\tone\ttwo", "one"},
        {"a line feed doesn't cut", "one\ntwo", "one\ntwo"},
        {"a return cuts", "one\r\ntwo", "one"},
        {"nothing but white space is empty", " \t\r\n ", ""},
        {"blanks inside stay", "one two ", "one two "},
        {"a wide blank is a character", "　一", "　一"},
    };
    for (const Row& row : kRows) {
        const CString source = SystemText(row.in);
        EXPECT_EQ(RemoveLeadingSpaces(source), SystemText(row.want)) << row.why;
    }
}

TEST_P(NameText, ALongTextIsCutAt256BytesWithoutSplittingACharacter) {
    const CString wide = SystemText("漢") + "tail";
    EXPECT_EQ(RemoveLeadingSpaces(CString('x', 255) + wide).GetLength(), 255);
    EXPECT_EQ(RemoveLeadingSpaces(CString('x', 260 - wide.GetLength()) + wide).GetLength(), 256);
}

TEST_P(NameText, LinesAreAddedInOrderAndAnEmptyOneBetweenTwoCounts) {
    CStringArray lines;
    lines.Add("before");
    AppendLines("", lines);
    AppendLines("one\r\n\r\ntwo\n", lines);

    ASSERT_EQ(lines.GetSize(), 4);
    EXPECT_EQ(lines[1], "one");
    EXPECT_EQ(lines[2], "");
    EXPECT_EQ(lines[3], "two");
}

struct NameRow {
    const char *why, *name, *first, *company;
    const char *english, *japanese;  // FormatName by the locale
    const char* column;              // GetFormattedName in English
};
constexpr NameRow kNames[] = {
    {"both names", "Lee", "Ann", "Acme", "Lee, Ann", "Lee Ann", "Lee, Ann"},
    {"no separator for an empty part", "", "Ann", "Acme", "Ann", "Ann", "Ann"},
    {"the company stands in for a missing name", "", "", "Acme\nInc", "Acme", "Acme", ""},
    {"nothing at all", "", "", "", "", "", ""},
    {"one line each", "Lee\r\nLi", "Ann\nJo", "", "Lee, Ann", "Lee Ann", "Lee, Ann\nJo"},
    {"tabs become blanks, or cut", "Lee\tX", "", "", "Lee    X", "Lee    X", "Lee"},
    {"a name of blanks", "  ", "Ann", "", "  , Ann", "   Ann", "Ann"},
    {"kanji", "山田", "太郎", "", "山田, 太郎", "山田 太郎", "山田, 太郎"},
};

TEST_P(NameText, ARowIsNamedByThePersonElseByTheCompany) {
    for (const NameRow& row : kNames) {
        const auto record =
            addresses.Make({{Name, row.name}, {First, row.first}, {Company, row.company}});
        CString result("old");
        FormatName(record.get(), result);
        EXPECT_EQ(result, SystemText(GetACP() == 932 ? row.japanese : row.english)) << row.why;
    }
}

TEST(NameColumn, NamesThePersonAloneAndSaysUnnamedOnlyWhenAsked) {
    const LocaleInForce locale("en-US");
    AddressFixture addresses;
    for (const NameRow& row : kNames) {
        const auto record =
            addresses.Make({{Name, row.name}, {First, row.first}, {Company, row.company}});
        CString result("old");
        GetFormattedName(record.get(), result, 0);
        EXPECT_EQ(result, row.column) << row.why;

        GetFormattedName(record.get(), result, 1);
        EXPECT_EQ(result, *row.column != '\0' ? row.column : "-Unnamed-") << row.why;
    }
}

}  // namespace
}  // namespace orvo
