// What the cells of an address list show, and names shortened to a width: 8 pixels a character.
// SPDX-License-Identifier: MIT
#include <contracts/TextServices.h>
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
    constexpr std::pair<int, const char*> kRows[] = {
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
    for (const auto& [id, want] : kRows) {
        EXPECT_EQ(TextOf(*record, id), want) << id;
        EXPECT_EQ(Draw(record.get(), id).empty(), *want == '\0') << id;
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
    constexpr const char* kRows[][3] = {
        {"Ann", "Lee", "Ann Lee"}, {"Ann", "", "Ann "},
        {"", "Lee", "Lee"},        {"", "", ""},
        {"\nAnn", "Lee", " Lee"},  {"Ann\r\nB", "Lee\nC", "Ann Lee"},
    };
    for (const auto& [first, name, want] : kRows) {
        const auto record = Make({{First, first}, {Name, name}, {Company, "Acme"}});
        EXPECT_EQ(view->GetNoteTitle(record.get()), want);
    }
    EXPECT_EQ(view->GetNoteTitle(nullptr), "");
}

TEST_F(AddressCells, APhoneEndsInTheFirstCharacterOfItsLabel) {
    // The last one stands where it differs under the Japanese page.
    constexpr const char* kRows[][5] = {
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
        for (const auto& [why, label, phone, usual, japanese] : kRows) {
            ASSERT_EQ(table.SetPhoneLabel(kWork, SystemText(label)), 0) << why;
            const auto record = Make({{PhoneField(2), phone}});
            const bool isJapanese = page.codePage == kJapaneseCodePage;
            const char* want = isJapanese && japanese ? japanese : usual;

            CString text("before");
            EXPECT_EQ(view->FormatPhone(record.get(), 2, kWork, text), *want != '\0') << why;

            EXPECT_EQ(text, SystemText(want)) << why;
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

class TruncateName : public AddressListFixture {
protected:
    CString Truncated(const char* text, const CAddressRecord& record, int characters) {
        RecordingCanvas canvas(std::make_shared<Recording>());
        CDC dc(canvas);
        CString result = SystemText(text);
        // Truncating only reads.
        view->TruncateName(result, const_cast<CAddressRecord*>(&record), &dc, 8 * characters);
        return result;
    }
};

TEST_F(TruncateName, EachHalfHasItsShareOfTheWidth) {
    constexpr std::tuple<const char*, const char*, const char*, int, const char*> kRows[] = {
        {"both are long", "Abcdefghij", "Klmnopqrst", 16, "Abcd..., Klmn..."},
        {"a width that isn't even", "Abcdefghij", "Klmnopqrst", 17, "Abcd..., Klmn..."},
        {"the first name is long", "Abc", "Klmnopqrstuv", 16, "Abc, Klmnopqr..."},
        {"the family name is long", "Abcdefghijkl", "Klm", 16, "Abcdefgh..., Klm"},
        {"room for a separator is kept", "Abcdefghijklmnopq", "", 16, "Abcdefghijk..."},
    };
    view->DV_SetListBy(kListByName);
    EXPECT_EQ(Truncated("fits", *Make({}), 4), "fits");
    for (const auto& [why, name, first, characters, want] : kRows) {
        const auto record = Make({{Name, name}, {First, first}});
        EXPECT_EQ(Truncated("a text that is too long for any of these", *record, characters), want)
            << why;
    }
}

TEST_F(TruncateName, TheListingOrderChoosesTheParts) {
    constexpr std::tuple<long, const char*, const char*, const char*, const char*> kRows[] = {
        {kListByName, "Co", "Na", "Fi", "Na, Fi"},  {kListByName, "Co", "Na", "", "Na"},
        {kListByName, "Co", "", "Fi", "Fi"},        {kListByName, "Co", "", "", "Co"},
        {kListByName, "", "", "", "-Unn..."},       {kListByCompany, "Co", "Na", "Fi", "Co, Na"},
        {kListByCompany, "Co", "", "Fi", "Co, Fi"}, {kListByCompany, "Co", "", "", "Co"},
        {kListByCompany, "", "Na", "Fi", "Na, Fi"}, {kListByCompany, "", "", "Fi", "Fi"},
        {kListByCompany, "", "", "", "-Unn..."},    {kListByName, "", "  Na", " Fi", "Na, Fi"},
    };
    for (const auto& [listBy, company, name, first, want] : kRows) {
        view->DV_SetListBy(static_cast<int>(listBy));
        const auto record = Make({{Company, company}, {Name, name}, {First, first}});
        EXPECT_EQ(Truncated("too long", *record, 7), want) << listBy << company << name << first;
    }
}

TEST_F(TruncateName, WideNamesAreCutBetweenCharactersAndJoinedAsTheLocaleDoes) {
    view->DV_SetListBy(kListByName);
    const auto record = Make({{Name, "漢字漢字漢字"}, {First, "仮名仮名仮名"}});
    for (const LocaleCase& page : kBothCodePages) {
        const LocaleInForce inForce(page.tag, page.codePage);
        EXPECT_EQ(Truncated("漢字漢字漢字仮名仮名仮名", *record, 16),
                  FullName(SystemText("仮名..."), SystemText("漢字..."), true));
    }
}

}  // namespace
}  // namespace orvo
