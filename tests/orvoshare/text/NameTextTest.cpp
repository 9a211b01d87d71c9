// The one-line texts that name a person.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <orvoshare/text/NameText.h>
#include <platform/text/SystemText.h>
#include <support/AddressFixture.h>
#include <support/CodePages.h>

namespace orvo {
namespace {

using enum AddressField;

class NameText : public testing::TestWithParam<LocaleCase> {
protected:
    LocaleInForce locale{GetParam().tag, GetParam().codePage};
    AddressFixture addresses;
};
INSTANTIATE_TEST_SUITE_P(BothCodePages, NameText, testing::ValuesIn(kBothCodePages));

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

// The fields, then what FormatName gives by the locale, and GetFormattedName in English.
constexpr const char* kNames[][7] = {
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
    for (const auto& [why, name, first, company, english, japanese, column] : kNames) {
        const auto record = addresses.Make({{Name, name}, {First, first}, {Company, company}});
        CString result("old");
        FormatName(record.get(), result);
        EXPECT_EQ(result, SystemText(GetACP() == 932 ? japanese : english)) << why;
    }
}

TEST(NameColumn, NamesThePersonAloneAndSaysUnnamedOnlyWhenAsked) {
    const LocaleInForce locale("en-US");
    AddressFixture addresses;
    for (const auto& [why, name, first, company, english, japanese, column] : kNames) {
        const auto record = addresses.Make({{Name, name}, {First, first}, {Company, company}});
        CString result("old");
        GetFormattedName(record.get(), result, 0);
        EXPECT_EQ(result, column) << why;

        GetFormattedName(record.get(), result, 1);
        EXPECT_EQ(result, *column != '\0' ? column : "-Unnamed-") << why;
    }
}

}  // namespace
}  // namespace orvo
