// What the cells of an address list show.
// SPDX-License-Identifier: MIT
#include <contracts/ResourceScope.h>
#include <orvoshare/addresslist/AddressListFixture.h>
#include <support/CodePages.h>

namespace orvo {
namespace {

using enum AddressField;
using Kind = DrawOperation::Kind;

constexpr int kWork = 2;  // the label's id
constexpr int kMobile = 0;

class AddressCells : public AddressListFixture {
protected:
    using AddressListFixture::AddressListFixture;

    void SetUp() override {
        for (const COrvoLVColumn& column : list->m_aColumns) list->ShowColumn(column.nId, -1);
    }

    Recording Draw(const CAddressRecord* record, int id, CRect cell = kCell, int selected = 0) {
        const auto recording = std::make_shared<Recording>();
        RecordingCanvas canvas(recording);
        CDC dc(canvas);
        list->DrawColumn(&dc, list->IndexOf(id), reinterpret_cast<DWORD>(record), cell, kFlags, 0,
                         selected);
        return *recording;
    }

    // The one text that is drawn; empty where nothing is.
    CString TextOf(const CAddressRecord& record, int id) {
        CString text;
        for (const DrawOperation& operation : Draw(&record, id)) {
            if (operation.kind == Kind::Text) text += operation.text;
        }
        return text;
    }

    static constexpr UINT kFlags = DT_SINGLELINE | DT_RIGHT;
    static constexpr CRect kCell{10, 20, 200, 45};
};

TEST_F(AddressCells, EachTextColumnShowsItsField) {
    CCategory* category = new CCategory;
    category->SetName("Friends");
    ASSERT_EQ(addresses.table.GetCategoryManager()->Add(category), 0);
    const auto record = addresses.Make({{Name, " Lee"},
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
    record->SetCategoryId(category->GetIndex());
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
        {AddressColumn::Category, "Friends"},
        {AddressColumn::Note, ""},
        {AddressColumn::Private, ""},
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
        const Recording drawn = Draw(record.get(), row.id);
        if (*row.want == '\0') {
            EXPECT_TRUE(drawn.empty()) << row.id;
            continue;
        }
        EXPECT_EQ(TextOf(*record, row.id), row.want);
        EXPECT_EQ(drawn.back().format, kFlags) << "the flags are passed on";
        EXPECT_EQ(drawn.size() > 1, row.id == AddressColumn::Category) << "the mark of a pop-up";
    }
    for (const int id : {-1, 12, 16, AddressColumn::FirstPhone + 8}) {
        const AddressCell cell = list->GetCell(record.get(), id);
        EXPECT_TRUE(cell.text.IsEmpty() && !cell.picture && !cell.opensPopup) << id;
    }
}

TEST_F(AddressCells, ACategoryThatIsGoneIsUncategorizedAndStillAPopup) {
    const auto record = addresses.Make({});
    record->SetCategoryId(9);
    const AddressCell cell = list->GetCell(record.get(), AddressColumn::Category);
    EXPECT_EQ(cell.text, "Uncategorized");
    EXPECT_TRUE(cell.opensPopup);
}

TEST_F(AddressCells, TheFirstSlotWithALabelIsShownEvenWhereItIsEmpty) {
    const auto record = addresses.Make({{PhoneField(4), "444"}});
    record->SetPhoneLabelID(2, kWork);
    record->SetPhoneLabelID(4, kWork);
    EXPECT_EQ(TextOf(*record, AddressColumn::FirstPhone + kWork), "");
}

TEST_F(AddressCells, NoteAndPadlockAreDrawnInTheMiddleOfTheRowWithoutTheirRed) {
    CBitmap padlock;
    CBitmap note;
    {
        const CDllResourceHandler resources(OrvoShareRecord());
        ASSERT_TRUE(padlock.LoadBitmap(1000));
        ASSERT_TRUE(note.LoadBitmap(1001));
    }
    ASSERT_NE(padlock, note);
    const auto record = addresses.Make({});
    record->SetNote("a note");
    record->SetPrivate(1);
    struct Row {
        int id;
        const CBitmap& bitmap;
        CRect cell;
        int top;
    };
    const int height = padlock.Size().cy;
    const Row rows[] = {
        {AddressColumn::Private, padlock, kCell, 20 + (25 - height) / 2},
        {AddressColumn::Note, note, kCell, 20 + (25 - height) / 2},
        {AddressColumn::Private, padlock, {10, 20, 30, 20 + height - 3}, 19},  // -3 / 2 is -1
    };
    for (const Row& row : rows) {
        const Recording drawn = Draw(record.get(), row.id, row.cell);
        ASSERT_EQ(drawn.size(), 1U);
        EXPECT_EQ(drawn[0].kind, Kind::Bitmap);
        EXPECT_EQ(drawn[0].bitmap, row.bitmap);
        EXPECT_EQ(drawn[0].rect.TopLeft(), (CPoint{10, row.top}));
        EXPECT_EQ(drawn[0].clear, COLORREF{255});
    }
}

TEST_F(AddressCells, ASelectedRowHasTheColourOfSelectedText) {
    system.SetColour(COLOR_WINDOWTEXT, RGB(1, 1, 1));
    system.SetColour(COLOR_HIGHLIGHTTEXT, RGB(2, 2, 2));
    const auto record = addresses.Make({{Name, "Lee"}});
    for (const int id : {int{AddressColumn::Name}, int{AddressColumn::Category}}) {
        EXPECT_EQ(Draw(record.get(), id, kCell, 0).back().colour, RGB(1, 1, 1));
        EXPECT_EQ(Draw(record.get(), id, kCell, 1).back().colour, RGB(2, 2, 2));
    }
}

TEST_F(AddressCells, NothingIsDrawnWithoutRecordRectangleOrContext) {
    const auto record = addresses.Make({{Name, "Lee"}});
    EXPECT_TRUE(Draw(nullptr, AddressColumn::Name).empty());
    EXPECT_TRUE(Draw(record.get(), AddressColumn::Name, {10, 20, 10, 45}).empty());
    EXPECT_TRUE(Draw(record.get(), 99).empty());
    CRect cell = kCell;
    list->DrawColumn(nullptr, 0, reinterpret_cast<DWORD>(record.get()), cell, 0, 0, 0);
    list->DV_SetAddressTable(nullptr);
    EXPECT_TRUE(Draw(record.get(), AddressColumn::Name).empty());
}

TEST_F(AddressCells, ACellIsKnownWithoutAWindow) {
    CDetailViewAddrList bare;
    bare.DV_SetAddressTable(&addresses.table);
    const auto record = addresses.Make({{Name, "Lee"}});
    EXPECT_EQ(bare.GetCell(record.get(), AddressColumn::Name).text, "Lee");
    EXPECT_TRUE(bare.GetCell(nullptr, AddressColumn::Name).text.IsEmpty());
}

TEST_F(AddressCells, TheNoteTitleHasTheFirstLinesOfBothNames) {
    struct Row {
        const char* first;
        const char* name;
        const char* want;
    };
    constexpr Row kRows[] = {
        {"Ann", "Lee", "Ann Lee"}, {"Ann", "", "Ann "},
        {"", "Lee", "Lee"},        {"", "", ""},
        {"\nAnn", "Lee", " Lee"},  {"Ann\r\nB", "Lee\nC", "Ann Lee"},
    };
    for (const Row& row : kRows) {
        const auto record =
            addresses.Make({{First, row.first}, {Name, row.name}, {Company, "Acme"}});
        EXPECT_EQ(list->GetNoteTitle(record.get()), row.want);
    }
    EXPECT_EQ(list->GetNoteTitle(nullptr), "");
}

class AddressCellsOnPage : public AddressCells, public testing::WithParamInterface<LocaleCase> {
protected:
    AddressCellsOnPage() : AddressCells(GetParam().tag, GetParam().codePage) {}
    static bool IsJapanese() { return GetParam().codePage == kJapaneseCodePage; }
};
INSTANTIATE_TEST_SUITE_P(BothCodePages, AddressCellsOnPage, testing::ValuesIn(kBothCodePages));

TEST_P(AddressCellsOnPage, APhoneEndsInTheFirstCharacterOfItsLabel) {
    struct Row {
        const char* why;
        const char* label;
        const char* phone;
        const char* want;
        const char* japanese;  // where it differs
    };
    constexpr Row kRows[] = {
        {"the first letter", "Work:", "555", "555 (W)", nullptr},
        {"as a capital", "work", "555", "555 (W)", nullptr},
        {"a digit", "2nd", "555", "555 (2)", nullptr},
        {"a kanji", "自宅", "555", "555 (自)", nullptr},
        {"a half-width kana", "ｱ", "555", "555 (ｱ)", nullptr},
        {"two bytes stay as they are", "ａｂ", "555", "555 (Ａ)", "555 (ａ)"},
        {"an accent, which the page has a private code for", "école", "555", "555 (É)", "555 (é)"},
        {"four bytes", "𐐨x", "555", "555 (𐐀)", "555 (𐐨)"},
        {"no label", "", "555", "555", nullptr},
        {"a number with blanks before it", "Work", "  555", "555 (W)", nullptr},
        {"no number", "Work", "", "", nullptr},
        {"blanks for a number", "Work", "   ", "", nullptr},
    };
    for (const Row& row : kRows) {
        ASSERT_EQ(addresses.table.SetPhoneLabel(kWork, FromUtf8(row.label)), 0) << row.why;
        const auto record = addresses.Make({{PhoneField(2), row.phone}});
        const char* want = IsJapanese() && row.japanese ? row.japanese : row.want;

        CString text("before");
        const int result = list->FormatPhone(record.get(), 2, kWork, text);

        EXPECT_EQ(text, FromUtf8(want)) << row.why;
        EXPECT_EQ(result, *want != '\0') << row.why;
    }
}

TEST_P(AddressCellsOnPage, AnAddressTakesTheFirstLineOfEachPart) {
    const auto record = addresses.Make({{Address, "1 Main St\nBack door"},
                                        {City, "Boston\r\n"},
                                        {State, "\rMA"},
                                        {ZipCode, "02134"},
                                        {Country, "USA"}});
    CString text;
    EXPECT_EQ(list->FormatAddress(record.get(), text), 1);
    EXPECT_EQ(text, IsJapanese() ? "02134,   Boston\r\n,  1 Main St   USA"
                                 : "1 Main St, Boston\r\n,     02134   USA");
    EXPECT_EQ(list->FormatAddress(addresses.Make({}).get(), text), 0);
    EXPECT_EQ(text, "");
}

}  // namespace
}  // namespace orvo
