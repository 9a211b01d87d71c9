// What the cells of an address list show.
// SPDX-License-Identifier: MIT
#include <orvoshare/addresslist/AddressListFixture.h>

namespace orvo {
namespace {

using enum AddressField;

constexpr int kWork = 2;  // the label's id
constexpr int kMobile = 0;

class AddressCells : public AddressListFixture {
protected:
    void SetUp() override {
        for (const COrvoLVColumn& column : view->m_aColumns) view->ShowColumn(column.nId, -1);
    }
};

TEST_F(AddressCells, EachTextColumnShowsItsField) {
    const auto record = Make({{Name, " Lee"},
                              {First, "Ann"},
                              {Title, "\t Chief\r\nof all"},
                              {Company, "  Acme"},
                              {Address, "1 Main St\r\nBack door"},
                              {City, "Boston"},
                              {PhoneField(1), " 111"},
                              {PhoneField(3), "333"},
                              {PhoneField(5), "555"},
                              {CustomField(1), " one"},
                              {CustomField(4), "four"}});
    record->SetCategoryId(kPersonal);
    record->SetDisplayPhone(3);
    record->SetPhoneLabelID(5, kMobile);
    struct Row {
        int id;
        const char* want;
    };
    constexpr Row kRows[] = {
        {AddressColumn::Name, "Lee, Ann"},
        {AddressColumn::Title, "Chief"},
        {AddressColumn::Company, "Acme"},
        {AddressColumn::Category, "Personal"},
        {AddressColumn::Address, "1 Main St, Boston"},
        {AddressColumn::PrimaryPhone, "333 (W)"},
        {AddressColumn::FirstCustom, "one"},
        {AddressColumn::FirstCustom + 1, ""},
        {AddressColumn::LastCustom, "four"},
        {AddressColumn::FirstPhone + kMobile, "111"},  // slots 1 and 5 have the label
        {AddressColumn::FirstPhone + kWork, "333"},
        {AddressColumn::FirstPhone + 1, ""},  // an empty number
        {AddressColumn::FirstPhone + 7, ""},  // a label of no slot
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(TextOf(*record, row.id), row.want) << row.id;
        EXPECT_EQ(Draw(record.get(), row.id).empty(), *row.want == '\0') << row.id;
    }
    for (const int id : {-1, 12, 16, AddressColumn::FirstPhone + 8}) {
        const AddressCell cell = view->GetCell(record.get(), id);
        EXPECT_TRUE(cell.text.IsEmpty() && !cell.picture && !cell.opensPopup) << id;
    }
}

TEST_F(AddressCells, TheFirstSlotWithALabelIsShownEvenWhereItIsEmpty) {
    const auto record = Make({{PhoneField(4), "444"}});
    record->SetPhoneLabelID(2, kWork);
    record->SetPhoneLabelID(4, kWork);
    EXPECT_EQ(TextOf(*record, AddressColumn::FirstPhone + kWork), "");
}

TEST_F(AddressCells, ACellIsKnownWithoutAWindow) {
    CDetailViewAddrList bare;
    bare.DV_SetAddressTable(&table);
    const auto record = Make({{Name, "Lee"}});
    EXPECT_EQ(bare.GetCell(record.get(), AddressColumn::Name).text, "Lee");
    EXPECT_TRUE(bare.GetCell(nullptr, AddressColumn::Name).text.IsEmpty());
}

TEST_F(AddressCells, TheNoteTitleHasTheFirstLinesOfBothNames) {
    struct Row {
        const char *first, *name, *want;
    };
    constexpr Row kRows[] = {
        {"Ann", "Lee", "Ann Lee"}, {"Ann", "", "Ann "},
        {"", "Lee", "Lee"},        {"", "", ""},
        {"\nAnn", "Lee", " Lee"},  {"Ann\r\nB", "Lee\nC", "Ann Lee"},
    };
    for (const Row& row : kRows) {
        const auto record = Make({{First, row.first}, {Name, row.name}, {Company, "Acme"}});
        EXPECT_EQ(view->GetNoteTitle(record.get()), row.want);
    }
    EXPECT_EQ(view->GetNoteTitle(nullptr), "");
}

TEST_F(AddressCells, APhoneEndsInTheFirstCharacterOfItsLabel) {
    struct Row {
        const char *why, *label, *phone, *want;
        const char* japanese;  // where it differs
    };
    constexpr Row kRows[] = {
        {"the first letter, as a capital", "work:", "555", "555 (W)", nullptr},
        {"a digit", "2nd", "555", "555 (2)", nullptr},
        {"a kanji", "自宅", "555", "555 (自)", nullptr},
        {"two bytes stay as they are", "ａｂ", "555", "555 (Ａ)", "555 (ａ)"},
        {"an accent, which the page has a private code for", "école", "555", "555 (É)", "555 (é)"},
        {"four bytes", "𐐨x", "555", "555 (𐐀)", "555 (𐐨)"},
        {"no label", "", "555", "555", nullptr},
        {"a number with blanks before it", "Work", "  555", "555 (W)", nullptr},
        {"blanks for a number", "Work", "   ", "", nullptr},
    };
    for (const LocaleCase& page : kBothCodePages) {
        const LocaleInForce inForce(page.tag, page.codePage);
        for (const Row& row : kRows) {
            ASSERT_EQ(table.SetPhoneLabel(kWork, SystemText(row.label)), 0) << row.why;
            const auto record = Make({{PhoneField(2), row.phone}});
            const bool isJapanese = page.codePage == kJapaneseCodePage;
            const char* want = isJapanese && row.japanese ? row.japanese : row.want;

            CString text("before");
            EXPECT_EQ(view->FormatPhone(record.get(), 2, kWork, text), *want != '\0') << row.why;

            EXPECT_EQ(text, SystemText(want)) << row.why;
        }
    }
}

TEST_F(AddressCells, AnAddressTakesTheFirstLineOfEachPart) {
    const auto record = Make({{Address, "1 Main St\nBack door"},
                              {City, "Boston\r\n"},
                              {State, "\rMA"},
                              {ZipCode, "02134"},
                              {Country, "USA"}});
    CString text;
    EXPECT_EQ(view->FormatAddress(record.get(), text), 1);
    EXPECT_EQ(text, "1 Main St, Boston\r\n,     02134   USA");
    EXPECT_EQ(view->FormatAddress(Make({}).get(), text), 0);
    EXPECT_EQ(text, "");
}

}  // namespace
}  // namespace orvo
