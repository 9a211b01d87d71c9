// What a host may rely on whichever address view it holds: one suite over both.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addressviews/DetailViewAddrCard.h>
#include <orvoshare/addressviews/LookupEdit.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemText.h>
#include <platform/window/WindowFixture.h>
#include <platform/window/memory/MemoryListPeer.h>
#include <support/AddressFixture.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

using enum AddressField;
using testing::ElementsAre;
using testing::IsEmpty;

struct Views {
    std::unique_ptr<CWnd> window;
    CDetailViewAddrInf* face;
};
using Maker = Views (*)(CWnd& parent, CAddressTable& table);

Views MakeList(CWnd& parent, CAddressTable& table) {
    auto list = std::make_unique<CDetailViewAddrList>();
    list->Create(LVS_REPORT, {0, 0, 600, 400}, &parent, 1);
    list->Initialize(&table, nullptr);
    list->ShowDefaultHeading(0);
    CDetailViewAddrInf* face = list.get();
    return {std::move(list), face};
}
Views MakeCards(CWnd& parent, CAddressTable& table) {
    auto cards = std::make_unique<CDetailViewAddrCard>();
    cards->Create(WS_CHILD, {0, 0, 600, 400}, &parent, 1);
    cards->Initialize(&table);
    CDetailViewAddrInf* face = cards.get();
    return {std::move(cards), face};
}

// Adams, Baker (category 3), Carter (private) and Dunn, of "Zeta", "Yard", "Xenon" and "Wien".
class BothViews : public testing::TestWithParam<Maker> {
protected:
    BothViews() {
        parent.Create(WS_POPUP, {0, 0, 600, 420}, nullptr, 0);
        box.Create(WS_CHILD, {0, 400, 600, 420}, &parent, 2);
        made = GetParam()(parent, addresses.table);
        face = made.face;
        face->DV_SetEdit(&box);
        box.SetListBox(face);
        Store("Dunn", "Wien");
        Store("Baker", "Yard")->SetCategoryId(3);
        Store("Adams", "Zeta");
        Store("Carter", "Xenon")->SetPrivate(1);
    }
    ~BothViews() override { parent.DestroyWindow(); }

    std::unique_ptr<CAddressRecord> Store(const char* name, const char* company) {
        auto record = addresses.Make({{Name, name}, {Company, company}});
        addresses.table.Add(*record);
        return record;
    }
    void Fill(int category = kAllCategories, int hidePrivate = 0, int listBy = 1) {
        face->DV_FillFromTable(&addresses.table, category, hidePrivate, listBy);
    }
    CAddressRecord* Record(int index) { return RecordOf(face->DV_GetItemData(index)); }
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (int i = 0; i < face->DV_GetItemCount(); ++i) {
            names.emplace_back(Record(i)->Utf8(Name));
        }
        return names;
    }
    std::vector<int> Selected() {
        std::vector<int> indices;
        for (POSITION position = face->DV_GetFirstSelectedItemPosition(); position;) {
            indices.push_back(face->DV_GetNextSelectedItem(position));
        }
        return indices;
    }

    // The view has the keyboard, and its second item is selected by a typed letter.
    void TypeB() {
        Fill();
        made.window->SetFocus();
        system.TypeText("b");
        ASSERT_EQ(BoxText(), "b");
        ASSERT_THAT(Selected(), ElementsAre(1));
    }
    std::string BoxText() const {
        CString text;
        box.GetWindowText(text);
        return ToUtf8(text);
    }
    CPoint Middle(int index) {
        CRect rect;
        auto& peer = dynamic_cast<MemoryListPeer&>(*made.window->GetPeer());
        EXPECT_TRUE(peer.RowRect(index, RowPart::Bounds, rect)) << index;
        return {rect.left + 20, rect.CenterPoint().y};
    }

    LocaleInForce locale{"en-US"};
    SystemInForce system;
    AddressFixture addresses;
    CWnd parent;
    CLookupEdit box;
    Views made;
    CDetailViewAddrInf* face = nullptr;
};
INSTANTIATE_TEST_SUITE_P(Views, BothViews, testing::Values(&MakeList, &MakeCards));

TEST_P(BothViews, AFillFiltersAndSorts) {
    Fill();
    EXPECT_THAT(Names(), ElementsAre("Adams", "Baker", "Carter", "Dunn"));
    Fill(kAllCategories, 1, 0);
    EXPECT_THAT(Names(), ElementsAre("Dunn", "Baker", "Adams"));
    Fill(3);
    EXPECT_THAT(Names(), ElementsAre("Baker"));
    face->DV_FillFromTable(nullptr, 0, 0, 1);
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_P(BothViews, TheSelectionIsWalkedInOrder) {
    Fill();
    face->DV_SelectItem(3, 1);
    face->DV_SelectItem(1, 1);
    EXPECT_THAT(Selected(), ElementsAre(1, 3));
    EXPECT_EQ(face->DV_GetSelectedCount(), 2U);
    EXPECT_EQ(face->DV_IsPrivateRecordSelected(), 0);
    face->DV_SelectAllItems(1);
    EXPECT_EQ(face->DV_IsPrivateRecordSelected(), 1);
    face->DV_SelectAndScroll(2);
    EXPECT_THAT(Selected(), ElementsAre(2));
    EXPECT_EQ(face->DV_GetFocusedItem(), 2);
    face->DV_SelectAllItems(0);
    EXPECT_EQ(face->DV_GetFirstSelectedItem(), -1);
    EXPECT_EQ(face->DV_GetFirstSelectedItemPosition(), nullptr);
}

TEST_P(BothViews, AnEditedRecordMovesOrLeaves) {
    Fill();
    Record(0)->SetUtf8(Name, "Cohen");
    EXPECT_EQ(face->DV_ReSort(0, kAllCategories, 0), 2);
    EXPECT_THAT(Names(), ElementsAre("Baker", "Carter", "Cohen", "Dunn"));
    EXPECT_EQ(face->DV_IsItemSelected(2), 1);
    Record(3)->SetPrivate(1);
    EXPECT_EQ(face->DV_ReSort(3, kAllCategories, 1), -1);
    EXPECT_EQ(face->DV_GetItemCount(), 3);
    EXPECT_EQ(face->DV_ReSort(9, kAllCategories, 0), -1);
}

TEST_P(BothViews, ANewRecordComesToItsPlaceInTheListingOrder) {
    Fill(kAllCategories, 0, 0);
    auto record = addresses.Make({{Name, "Aaron"}, {Company, "Yarn"}});
    CAddressRecord* added = record.release();

    EXPECT_EQ(face->DV_InsertRecord(0, added, 1), 3);
    EXPECT_EQ(face->DV_InsertRecord(0, nullptr, 1), -1);
    EXPECT_EQ(face->DV_InsertRecord(99, addresses.Make({{Name, "Zoe"}}).release(), 0), 5);
    EXPECT_EQ(face->DV_InsertRecord(-1, addresses.Make({{Name, "No"}}).release(), 0), -1);
    std::unique_ptr<CAddressRecord> last(Record(5));
    face->DV_DeleteItem(5);

    EXPECT_THAT(Names(), ElementsAre("Dunn", "Carter", "Baker", "Aaron", "Adams"));
    EXPECT_EQ(face->DV_FindItemByData(reinterpret_cast<long>(added)), 3);
}

TEST_P(BothViews, ADeletedItemLeavesItsRecordToTheCaller) {
    Fill();
    const std::unique_ptr<CAddressRecord> record(Record(1));
    EXPECT_NE(face->DV_DeleteItem(1), 0);
    EXPECT_EQ(record->Utf8(Name), "Baker");
    EXPECT_THAT(Names(), ElementsAre("Adams", "Carter", "Dunn"));
    face->DV_DeleteAll();
    face->DV_DeleteAll();
    EXPECT_EQ(face->DV_GetItemCount(), 0);
}

TEST_P(BothViews, TypedTextGoesToTheBoxAndSelectsWhatItFinds) {
    Fill();
    made.window->SetFocus();
    system.TypeText("car");
    EXPECT_THAT(Selected(), ElementsAre(2));
    system.TypeText("x");
    EXPECT_EQ(system.Beeps(), 1);
    EXPECT_THAT(Selected(), ElementsAre(2));
    system.PressKey(VK_BACK);
    EXPECT_EQ(BoxText(), "ca");
}

// Their trail bytes on 932, 80 and A0, aren't printable by themselves.
TEST_P(BothViews, EveryByteOfATypedCharacterGoesToTheBox) {
    Store("ムあ", "Wien");
    for (const unsigned page : {kUtf8CodePage, kJapaneseCodePage}) {
        const LocaleInForce inForce("en-US", page);
        Fill();
        made.window->SetFocus();
        box.Clear();
        system.TypeText("ムあ");
        EXPECT_EQ(BoxText(), "ムあ") << page;
        EXPECT_THAT(Selected(), ElementsAre(4)) << page;
    }
}

TEST_P(BothViews, ControlCharactersStayWithTheView) {
    TypeB();
    face->DV_SelectAndScroll(3);
    for (const UINT character : {1U, 9U, 13U, 27U, 127U}) {
        made.window->SendMessage(WM_CHAR, character, 1);
        EXPECT_THAT(Selected(), ElementsAre(3)) << "the box searched again, " << character;
    }
    EXPECT_EQ(BoxText(), "b");
}

TEST_P(BothViews, KeysThatLeaveTheLookupClearTheBoxAndMove) {
    for (const UINT key : {VK_UP, VK_DOWN, VK_PRIOR, VK_NEXT}) {
        box.Clear();
        TypeB();
        system.PressKey(key);
        EXPECT_EQ(BoxText(), "") << key;
        EXPECT_NE(face->DV_GetFirstSelectedItem(), 1) << key;
    }
    for (const UINT key : {VK_HOME, VK_END, VK_F2}) {
        box.Clear();
        TypeB();
        system.PressKey(key);
        EXPECT_EQ(BoxText(), "b") << key;
    }
}

TEST_P(BothViews, KeysPressedInTheBoxMoveTheViewToo) {
    TypeB();
    box.SetFocus();
    system.PressKey(VK_DOWN);
    EXPECT_EQ(BoxText(), "");
    EXPECT_THAT(Selected(), ElementsAre(2));
}

TEST_P(BothViews, AClickClearsTheBoxAndSelects) {
    TypeB();
    system.Click(*made.window, Middle(2));
    EXPECT_EQ(BoxText(), "");
    EXPECT_THAT(Selected(), ElementsAre(2));
}

TEST_P(BothViews, WithoutABoxTheViewStillAnswers) {
    Fill();
    made.window->SetFocus();
    face->DV_SetEdit(nullptr);
    face->DV_SelectAndScroll(1);

    system.TypeText("cム");
    system.PressKey(VK_BACK);
    EXPECT_THAT(Selected(), ElementsAre(1));
    system.PressKey(VK_DOWN);
    EXPECT_THAT(Selected(), ElementsAre(2));
    system.Click(*made.window, Middle(0));
    EXPECT_THAT(Selected(), ElementsAre(0));
}

TEST_P(BothViews, AnItemThatIsNotThereIsHarmless) {
    Fill();
    for (const int index : {-1, 4}) {
        EXPECT_EQ(RecordOf(face->DV_GetItemData(index)), nullptr);
        EXPECT_EQ(face->DV_IsItemSelected(index), 0);
        EXPECT_EQ(face->DV_VerifyCategoryAndPrivate(index, kAllCategories, 0), 0);
        face->DV_Update(index);
        face->DV_DeleteItem(index);
    }
    EXPECT_EQ(face->DV_GetItemCount(), 4);
    EXPECT_EQ(face->DV_Lookup("nobody"), -1);
}

TEST_P(BothViews, AViewThatIsDeletedWithItsWindowFreesItsRecords) {
    Fill();
    EXPECT_EQ(face->DV_GetItemCount(), 4);
    made.window.reset();  // the leak check watches
}

}  // namespace
}  // namespace orvo
