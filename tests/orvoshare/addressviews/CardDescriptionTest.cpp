// What a business card says.
// SPDX-License-Identifier: MIT
#include <contract/RecordValues.h>
#include <orvoshare/addressviews/RecordText.h>
#include <orvoshare/addressviews/ViewFixture.h>

namespace orvo {
namespace {

using enum AddressField;

// The first two labels are "Home:" and "Fax:", the third is empty; the custom fields go by "C1" to
// "C4".
class CardDescription : public testing::TestWithParam<LocaleCase>, public ViewFixture {
protected:
    CardDescription() {
        table.SetPhoneLabel(0, "Home:");
        table.SetPhoneLabel(1, "Fax:");
        table.SetPhoneLabel(2, "");
        for (int number = 1; number <= kCustomFields; ++number) {
            table.SetCustomLabel(number, ("C" + std::to_string(number)).c_str());
        }
        view.Initialize(&table);
    }

    CCardDesc Describe(const AddressTexts& texts) {
        view.DV_DeleteAll();
        view.DV_InsertRecord(0, Make(texts).release(), 0);
        return Describe();
    }
    CCardDesc Describe() {
        CCardDesc card;
        view.GetCardDescription(0, card);
        return card;
    }

    LocaleInForce locale{GetParam().tag, GetParam().codePage};
};
INSTANTIATE_TEST_SUITE_P(BothCodePages, CardDescription, testing::ValuesIn(kBothCodePages));

TEST_P(CardDescription, EveryBlockStandsWhereItBelongs) {
    constexpr const char* kTwoFields = "C\n\nC1:\ta\nC4:\tb\n";
    constexpr const char* kPhoneAndField = "Home:\t1\n\nC4:\ta\n\tb\tc\n";
    const std::tuple<const char*, AddressTexts, const char*, const char*> kRows[] = {
        {"nothing", {}, "", ""},
        {"a name alone has no head", {{Name, "Lee"}, {Phone1, "1"}}, "Lee", "Home:\t1\n"},
        {"name and company", {{Name, "Lee"}, {Company, "Acme"}}, "Lee", "Acme\n\n<L>\n"},
        {"name and job title", {{Name, "Lee"}, {Title, "Dr."}}, "Lee", "Dr.\n\n<L>\n"},
        {"all three", {{Name, "L"}, {Company, "Acme"}, {Title, "Dr."}}, "L", "Acme\nDr.\n<L>\n"},
        {"a company alone", {{Company, "Acme"}}, "Acme", ""},
        {"a job title alone", {{Title, "Dr.\nb"}}, "", "Dr.\n\n<L>\n"},
        {"first lines", {{Name, "L\nx"}, {Company, "A\t\r\nx"}}, "L", "A    \n\n<L>\n"},
        {"further lines of a phone", {{Phone1, "1\n2\r\n3"}}, "", "Home:\t1\n\t2\n\t3\n"},
        {"a phone without a label isn't there", {{PhoneField(3), "1"}, {City, "C"}}, "", "C\n"},
        {"tabs of a phone become blanks", {{PhoneField(2), "1\t2"}}, "", "Fax:\t1    2\n"},
        {"phones and address", {{Phone1, "1"}, {City, "C"}}, "", "Home:\t1\n\nC\n"},
        {"address and fields", {{City, "C"}, {Custom1, "a"}, {Custom4, "b"}}, "", kTwoFields},
        {"a phone and a field", {{Phone1, "1"}, {Custom4, "a\nb\tc"}}, "", kPhoneAndField},
        {"an address of several lines", {{Address, "A\nB"}, {Country, "N"}}, "", "A\nB\nN\n"},
        {"kanji", {{Name, "渡辺"}, {Company, "港商会"}}, "渡辺", "港商会\n\n<L>\n"},
    };
    for (const auto& [why, texts, title, body] : kRows) {
        const CCardDesc card = Describe(texts);
        EXPECT_EQ(ToUtf8(card.strTitle), title) << why;
        EXPECT_EQ(ToUtf8(card.strBody), body) << why;
    }
}

TEST_P(CardDescription, AMaskedCardTellsNothingButThatItIsThere) {
    Describe({{Name, "Secret"}, {Phone1, "1"}});
    RecordAt(0)->SetPrivate(1);
    RecordAt(0)->SetNote("note");

    const CCardDesc open = Describe();
    view.DV_SetMaskPrivate(1);
    const CCardDesc masked = Describe();

    EXPECT_TRUE(open.bPrivate && open.bHasNote && !open.bMasked);
    EXPECT_EQ(ToUtf8(open.strTitle), "Secret");
    EXPECT_TRUE(masked.bPrivate && masked.bMasked && !masked.bHasNote);
    EXPECT_EQ(ToUtf8(masked.strTitle + masked.strBody + masked.strCategory), "");
}

TEST_P(CardDescription, TheCategoryGoesByItsNameOrByTheTextForNone) {
    AddCategory(table, "Friends");
    Describe({{Name, "Lee"}});
    const std::string none = ToUtf8(Describe().strCategory);

    RecordAt(0)->SetCategoryId(1);
    EXPECT_EQ(ToUtf8(Describe().strCategory), "Friends");
    RecordAt(0)->SetCategoryId(15);
    EXPECT_EQ(ToUtf8(Describe().strCategory), none) << "the manager knows no category 15";
    EXPECT_FALSE(none.empty());
}

TEST_P(CardDescription, LabelsBreakNoLine) {
    table.SetPhoneLabel(0, "Wo\nrk");
    table.SetCustomLabel(1, "A\tB\rC");
    const CCardDesc card = Describe({{Phone1, "1"}, {Custom1, "x"}});
    EXPECT_EQ(ToUtf8(card.strBody), "Wo\t1\n\nA    B:\tx\n");
}

TEST_P(CardDescription, HugeAndBrokenTextsKeepTheFormOfLines) {
    std::string ends;
    std::string mixed;
    for (int i = 0; i < 100'000; ++i) ends += "\r\n"[i % 2];
    for (int i = 0; i < 25'000; ++i) mixed += i % 3 == 0 ? "a\r" : i % 3 == 1 ? "b\n" : "c\r\n";
    for (const std::string& text : {std::string(100'000, 'x'), ends, mixed}) {
        const CCardDesc card =
            Describe({{Name, text}, {Phone1, text}, {City, text}, {Custom1, text}});
        const std::string_view body = card.strBody.View();
        ASSERT_FALSE(body.empty());
        EXPECT_EQ(body.back(), '\n');
        EXPECT_EQ(body.find('\r'), std::string_view::npos);
    }
}

TEST_P(CardDescription, TheTabStopLeavesRoomForTheLongestLabel) {
    CDetailViewAddrCard cards;
    EXPECT_EQ(cards.Initialize(nullptr), 1);
    EXPECT_EQ(cards.GetTabStop(), 0);
    for (long id = 0; id < table.GetPhoneLabelCount(); ++id) table.SetPhoneLabel(id, "");
    for (int number = 1; number <= kCustomFields; ++number) table.SetCustomLabel(number, "");
    cards.Initialize(&table);
    EXPECT_EQ(cards.GetTabStop(), 4);
    table.SetPhoneLabel(3, "Mobile");
    table.SetCustomLabel(4, "Birthdays");
    cards.Initialize(&table);
    EXPECT_EQ(cards.GetTabStop(), 13);
}

}  // namespace
}  // namespace orvo
