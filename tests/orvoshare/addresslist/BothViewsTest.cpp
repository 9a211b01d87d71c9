// What a host may rely on whichever address view it holds: one suite over both.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addressviews/DetailViewAddrCard.h>
#include <orvoshare/addressviews/LookupEdit.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemText.h>
#include <platform/window/MemoryListPeer.h>
#include <platform/window/WindowFixture.h>
#include <support/AddressFixture.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

using enum AddressField;
using testing::ElementsAre;
using testing::IsEmpty;

template <class View>
void SetUpView(View& view, CAddressTable& table);
template <>
void SetUpView(CDetailViewAddrList& view, CAddressTable& table) {
    view.Initialize(&table, nullptr);
    view.ShowDefaultHeading(0);
}
template <>
void SetUpView(CDetailViewAddrCard& view, CAddressTable& table) {
    view.Initialize(&table);
}

// Adams, Baker (category 3), Carter (private) and Dunn, of "Zeta", "Yard", "Xenon" and "Wien".
template <class View>
class BothViews : public testing::Test {
protected:
    BothViews() {
        parent.Create(WS_POPUP, {0, 0, 600, 420}, nullptr, 0);
        view.Create(LVS_REPORT, {0, 0, 600, 400}, &parent, 1);
        box.Create(WS_CHILD, {0, 400, 600, 420}, &parent, 2);
        SetUpView(view, addresses.table);
        face.DV_SetEdit(&box);
        box.SetListBox(&face);
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
        face.DV_FillFromTable(&addresses.table, category, hidePrivate, listBy);
    }
    CAddressRecord* Record(int index) { return RecordOf(face.DV_GetItemData(index)); }
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (int i = 0; i < face.DV_GetItemCount(); ++i) {
            names.emplace_back(Record(i)->Utf8(Name));
        }
        return names;
    }
    std::vector<int> Selected() {
        std::vector<int> indices;
        for (POSITION position = face.DV_GetFirstSelectedItemPosition(); position;) {
            indices.push_back(face.DV_GetNextSelectedItem(position));
        }
        return indices;
    }

    // The view has the keyboard, and its second item is selected by a typed letter.
    void TypeB() {
        Fill();
        view.SetFocus();
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
        auto& peer = dynamic_cast<MemoryListPeer&>(*view.GetPeer());
        EXPECT_TRUE(peer.RowRect(index, RowPart::Bounds, rect)) << index;
        return {rect.left + 20, rect.CenterPoint().y};
    }

    LocaleInForce locale{"en-US"};
    SystemInForce system;
    AddressFixture addresses;
    CWnd parent;
    CLookupEdit box;
    View view;
    CDetailViewAddrInf& face = view;
};
using Views = testing::Types<CDetailViewAddrList, CDetailViewAddrCard>;
TYPED_TEST_SUITE(BothViews, Views);

TYPED_TEST(BothViews, AFillFiltersAndSorts) {
    this->Fill();
    EXPECT_THAT(this->Names(), ElementsAre("Adams", "Baker", "Carter", "Dunn"));
    this->Fill(kAllCategories, 1, 0);
    EXPECT_THAT(this->Names(), ElementsAre("Dunn", "Baker", "Adams"));
    this->Fill(3);
    EXPECT_THAT(this->Names(), ElementsAre("Baker"));
    this->face.DV_FillFromTable(nullptr, 0, 0, 1);
    EXPECT_THAT(this->Names(), IsEmpty());
}

TYPED_TEST(BothViews, TheSelectionIsWalkedInOrder) {
    this->Fill();
    this->face.DV_SelectItem(3, 1);
    this->face.DV_SelectItem(1, 1);
    EXPECT_THAT(this->Selected(), ElementsAre(1, 3));
    EXPECT_EQ(this->face.DV_GetSelectedCount(), 2U);
    EXPECT_EQ(this->face.DV_IsPrivateRecordSelected(), 0);
    this->face.DV_SelectAllItems(1);
    EXPECT_EQ(this->face.DV_IsPrivateRecordSelected(), 1);
    this->face.DV_SelectAndScroll(2);
    EXPECT_THAT(this->Selected(), ElementsAre(2));
    EXPECT_EQ(this->face.DV_GetFocusedItem(), 2);
    this->face.DV_SelectAllItems(0);
    EXPECT_EQ(this->face.DV_GetFirstSelectedItem(), -1);
    EXPECT_EQ(this->face.DV_GetFirstSelectedItemPosition(), nullptr);
}

TYPED_TEST(BothViews, AnEditedRecordMovesOrLeaves) {
    this->Fill();
    this->Record(0)->SetUtf8(Name, "Cohen");
    EXPECT_EQ(this->face.DV_ReSort(0, kAllCategories, 0), 2);
    EXPECT_THAT(this->Names(), ElementsAre("Baker", "Carter", "Cohen", "Dunn"));
    EXPECT_EQ(this->face.DV_IsItemSelected(2), 1);
    this->Record(3)->SetPrivate(1);
    EXPECT_EQ(this->face.DV_ReSort(3, kAllCategories, 1), -1);
    EXPECT_EQ(this->face.DV_GetItemCount(), 3);
    EXPECT_EQ(this->face.DV_ReSort(9, kAllCategories, 0), -1);
}

TYPED_TEST(BothViews, ANewRecordComesToItsPlaceInTheListingOrder) {
    this->Fill(kAllCategories, 0, 0);
    auto record = this->addresses.Make({{Name, "Aaron"}, {Company, "Yarn"}});
    CAddressRecord* added = record.release();

    EXPECT_EQ(this->face.DV_InsertRecord(0, added, 1), 3);
    EXPECT_EQ(this->face.DV_InsertRecord(0, nullptr, 1), -1);
    EXPECT_EQ(this->face.DV_InsertRecord(99, this->addresses.Make({{Name, "Zoe"}}).release(), 0),
              5);
    EXPECT_EQ(this->face.DV_InsertRecord(-1, this->addresses.Make({{Name, "No"}}).release(), 0),
              -1);
    std::unique_ptr<CAddressRecord> last(this->Record(5));
    this->face.DV_DeleteItem(5);

    EXPECT_THAT(this->Names(), ElementsAre("Dunn", "Carter", "Baker", "Aaron", "Adams"));
    EXPECT_EQ(this->face.DV_FindItemByData(reinterpret_cast<long>(added)), 3);
}

TYPED_TEST(BothViews, ADeletedItemLeavesItsRecordToTheCaller) {
    this->Fill();
    const std::unique_ptr<CAddressRecord> record(this->Record(1));
    EXPECT_NE(this->face.DV_DeleteItem(1), 0);
    EXPECT_EQ(record->Utf8(Name), "Baker");
    EXPECT_THAT(this->Names(), ElementsAre("Adams", "Carter", "Dunn"));
    this->face.DV_DeleteAll();
    this->face.DV_DeleteAll();
    EXPECT_EQ(this->face.DV_GetItemCount(), 0);
}

TYPED_TEST(BothViews, TypedTextGoesToTheBoxAndSelectsWhatItFinds) {
    this->Fill();
    this->view.SetFocus();
    this->system.TypeText("car");
    EXPECT_THAT(this->Selected(), ElementsAre(2));
    this->system.TypeText("x");
    EXPECT_EQ(this->system.Beeps(), 1);
    EXPECT_THAT(this->Selected(), ElementsAre(2));
    this->system.PressKey(VK_BACK);
    EXPECT_EQ(this->BoxText(), "ca");
}

// Their trail bytes on 932, 80 and A0, aren't printable by themselves.
TYPED_TEST(BothViews, EveryByteOfATypedCharacterGoesToTheBox) {
    this->Store("ムあ", "Wien");
    for (const unsigned page : {kUtf8CodePage, kJapaneseCodePage}) {
        const LocaleInForce inForce("en-US", page);
        this->Fill();
        this->view.SetFocus();
        this->box.Clear();
        this->system.TypeText("ムあ");
        EXPECT_EQ(this->BoxText(), "ムあ") << page;
        EXPECT_THAT(this->Selected(), ElementsAre(4)) << page;
    }
}

TYPED_TEST(BothViews, ControlCharactersStayWithTheView) {
    this->TypeB();
    this->face.DV_SelectAndScroll(3);
    for (const UINT character : {1U, 9U, 13U, 27U, 127U}) {
        this->view.SendMessage(WM_CHAR, character, 1);
        EXPECT_THAT(this->Selected(), ElementsAre(3)) << "the box searched again, " << character;
    }
    EXPECT_EQ(this->BoxText(), "b");
}

TYPED_TEST(BothViews, KeysThatLeaveTheLookupClearTheBoxAndMove) {
    for (const UINT key : {VK_UP, VK_DOWN, VK_PRIOR, VK_NEXT}) {
        this->box.Clear();
        this->TypeB();
        this->system.PressKey(key);
        EXPECT_EQ(this->BoxText(), "") << key;
        EXPECT_NE(this->face.DV_GetFirstSelectedItem(), 1) << key;
    }
    for (const UINT key : {VK_HOME, VK_END, VK_F2}) {
        this->box.Clear();
        this->TypeB();
        this->system.PressKey(key);
        EXPECT_EQ(this->BoxText(), "b") << key;
    }
}

TYPED_TEST(BothViews, KeysPressedInTheBoxMoveTheViewToo) {
    this->TypeB();
    this->box.SetFocus();
    this->system.PressKey(VK_DOWN);
    EXPECT_EQ(this->BoxText(), "");
    EXPECT_THAT(this->Selected(), ElementsAre(2));
}

TYPED_TEST(BothViews, AClickClearsTheBoxAndSelects) {
    this->TypeB();
    this->system.Click(this->view, this->Middle(2));
    EXPECT_EQ(this->BoxText(), "");
    EXPECT_THAT(this->Selected(), ElementsAre(2));
}

TYPED_TEST(BothViews, WithoutABoxTheViewStillAnswers) {
    this->Fill();
    this->view.SetFocus();
    this->face.DV_SetEdit(nullptr);
    this->face.DV_SelectAndScroll(1);

    this->system.TypeText("cム");
    this->system.PressKey(VK_BACK);
    EXPECT_THAT(this->Selected(), ElementsAre(1));
    this->system.PressKey(VK_DOWN);
    EXPECT_THAT(this->Selected(), ElementsAre(2));
    this->system.Click(this->view, this->Middle(0));
    EXPECT_THAT(this->Selected(), ElementsAre(0));
}

TYPED_TEST(BothViews, AnItemThatIsNotThereIsHarmless) {
    this->Fill();
    for (const int index : {-1, 4}) {
        EXPECT_EQ(RecordOf(this->face.DV_GetItemData(index)), nullptr);
        EXPECT_EQ(this->face.DV_IsItemSelected(index), 0);
        EXPECT_EQ(this->face.DV_VerifyCategoryAndPrivate(index, kAllCategories, 0), 0);
        this->face.DV_Update(index);
        this->face.DV_DeleteItem(index);
    }
    EXPECT_EQ(this->face.DV_GetItemCount(), 4);
    EXPECT_EQ(this->face.DV_Lookup("nobody"), -1);
}

TYPED_TEST(BothViews, AViewThatIsDeletedWithItsWindowFreesItsRecords) {
    auto other = std::make_unique<TypeParam>();
    other->Create(LVS_REPORT, {0, 0, 600, 400}, &this->parent, 3);
    SetUpView(*other, this->addresses.table);
    other->DV_FillFromTable(&this->addresses.table, kAllCategories, 0, 1);
    EXPECT_EQ(other->DV_GetItemCount(), 4);
    other.reset();  // the leak check watches
}

}  // namespace
}  // namespace orvo
