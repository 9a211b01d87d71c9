// What a host may rely on whichever address view it holds: one suite over both.
// SPDX-License-Identifier: MIT
#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addressviews/ViewFixture.h>

namespace orvo {
namespace {

using enum AddressField;

// A window that is a view, and the view that it is.
using View = std::pair<std::unique_ptr<CWnd>, CDetailViewAddrInf*>;
using Maker = View (*)(CWnd& parent, CAddressTable& table);

View MakeList(CWnd& parent, CAddressTable& table) {
    auto list = std::make_unique<CDetailViewAddrList>();
    list->Create(LVS_REPORT, {0, 0, 600, 400}, &parent, 1);
    list->Initialize(&table, nullptr);
    list->ShowDefaultHeading(0);
    CDetailViewAddrInf* face = list.get();
    return {std::move(list), face};
}
View MakeCards(CWnd& parent, CAddressTable& table) {
    auto cards = std::make_unique<CDetailViewAddrCard>();
    cards->Create(WS_CHILD, {0, 0, 600, 400}, &parent, 1);
    cards->Initialize(&table);
    CDetailViewAddrInf* face = cards.get();
    return {std::move(cards), face};
}

// Adams, Baker (category 3), Carter (private) and Dunn, of "Zeta", "Yard", "Xenon" and "Wien".
// The leak check tells where a record isn't freed.
class BothViews : public testing::TestWithParam<Maker>, public ViewHands {
protected:
    BothViews() {
        parent.Create(WS_POPUP, {0, 0, 600, 420}, nullptr, 0);
        box.Create(WS_CHILD, {0, 400, 600, 420}, &parent, 2);
        std::tie(window, face) = GetParam()(parent, table);
        face->DV_SetEdit(&box);
        box.SetListBox(face);
        Add({{Name, "Dunn"}, {Company, "Wien"}});
        Add({{Name, "Baker"}, {Company, "Yard"}}, 3);
        Add({{Name, "Adams"}, {Company, "Zeta"}});
        Add({{Name, "Carter"}, {Company, "Xenon"}})->SetPrivate(1);
        Add({{Name, "Archived"}}, 3)->SetArchived(1);
        Fill();
        window->SetFocus();
    }
    ~BothViews() override { parent.DestroyWindow(); }

    // The second item is selected by a typed letter.
    void TypeB() {
        box.Clear();
        Fill();
        system.TypeText("b");
        ASSERT_EQ(TextOf(box), "b");
        ASSERT_THAT(SelectedNames(), ElementsAre("Baker"));
    }

    LocaleInForce locale{"en-US"};
    CWnd parent;
    CLookupEdit box;
    std::unique_ptr<CWnd> window;
};
INSTANTIATE_TEST_SUITE_P(Views, BothViews, testing::Values(&MakeList, &MakeCards));

TEST_P(BothViews, AFillFiltersAndSorts) {
    EXPECT_THAT(Names(), ElementsAre("Adams", "Baker", "Carter", "Dunn"));
    Fill(kAllCategories, 1, 0);
    EXPECT_THAT(Names(), ElementsAre("Dunn", "Baker", "Adams"));
    Fill(3);
    EXPECT_THAT(Names(), ElementsAre("Baker"));
    RecordAt(0)->SetArchived(1);
    EXPECT_EQ(face->DV_VerifyCategoryAndPrivate(0, 3, 1), 1) << "only a fill looks for it";
    face->DV_FillFromTable(nullptr, 0, 0, 1);
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_P(BothViews, TheSelectionIsWalkedInOrder) {
    face->DV_SelectItem(3, 1);
    face->DV_SelectItem(1, 1);
    EXPECT_THAT(SelectedNames(), ElementsAre("Baker", "Dunn"));
    EXPECT_EQ(face->DV_GetSelectedCount(), 2U);
    EXPECT_EQ(face->DV_IsPrivateRecordSelected(), 0);
    face->DV_SelectAllItems(1);
    EXPECT_EQ(face->DV_IsPrivateRecordSelected(), 1);
    face->DV_SelectAndScroll(2);
    EXPECT_THAT(SelectedNames(), ElementsAre("Carter"));
    EXPECT_EQ(face->DV_GetFocusedItem(), 2);
    face->DV_SelectAllItems(0);
    EXPECT_EQ(face->DV_GetFirstSelectedItem(), -1);
    EXPECT_EQ(face->DV_GetFirstSelectedItemPosition(), nullptr);
}

TEST_P(BothViews, AnEditedRecordMovesOrLeaves) {
    RecordAt(0)->SetUtf8(Name, "Cohen");
    EXPECT_EQ(face->DV_ReSort(0, kAllCategories, 0), 2);
    EXPECT_THAT(Names(), ElementsAre("Baker", "Carter", "Cohen", "Dunn"));
    EXPECT_EQ(face->DV_IsItemSelected(2), 1);
    RecordAt(3)->SetPrivate(1);
    EXPECT_EQ(face->DV_ReSort(3, kAllCategories, 1), -1);
    EXPECT_EQ(face->DV_ReSort(0, 0, 0), -1) << "of category 3";
    EXPECT_THAT(Names(), ElementsAre("Carter", "Cohen"));
    EXPECT_EQ(face->DV_ReSort(9, kAllCategories, 0), -1);
}

TEST_P(BothViews, ANewRecordComesToItsPlaceInTheListingOrder) {
    Fill(kAllCategories, 0, 0);
    auto record = Make({{Name, "Aaron"}, {Company, "Yarn"}});
    CAddressRecord* added = record.release();

    EXPECT_EQ(face->DV_InsertRecord(0, added, 1), 3);
    EXPECT_EQ(face->DV_InsertRecord(0, nullptr, 1), -1);
    EXPECT_EQ(face->DV_InsertRecord(99, Make({{Name, "Zoe"}}).release(), 0), 5);
    EXPECT_EQ(face->DV_InsertRecord(-1, Make({{Name, "No"}}).release(), 0), -1);
    const std::unique_ptr<CAddressRecord> last(RecordAt(5));
    EXPECT_NE(face->DV_DeleteItem(5), 0);
    EXPECT_EQ(last->Utf8(Name), "Zoe") << "left to the caller";

    EXPECT_THAT(Names(), ElementsAre("Dunn", "Carter", "Baker", "Aaron", "Adams"));
    EXPECT_EQ(face->DV_FindItemByData(reinterpret_cast<long>(added)), 3);
    for (int i = 0; i < 2; ++i) face->DV_DeleteAll();
    EXPECT_EQ(face->DV_GetItemCount(), 0);
}

TEST_P(BothViews, TypedTextGoesToTheBoxAndSelectsWhatItFinds) {
    system.TypeText("car");
    EXPECT_THAT(SelectedNames(), ElementsAre("Carter"));
    system.TypeText("x");
    EXPECT_EQ(system.Beeps(), 1);
    EXPECT_THAT(SelectedNames(), ElementsAre("Carter"));
    system.PressKey(VK_BACK);
    EXPECT_EQ(TextOf(box), "ca");
}

// Their trail bytes on 932, 80 and A0, aren't printable by themselves.
TEST_P(BothViews, EveryByteOfATypedCharacterGoesToTheBox) {
    AddNames({"ムあ"});
    for (const unsigned page : {kUtf8CodePage, kJapaneseCodePage}) {
        const LocaleInForce inForce("en-US", page);
        Fill();
        box.Clear();
        system.TypeText("ムあ");
        EXPECT_EQ(TextOf(box), "ムあ") << page;
        EXPECT_THAT(SelectedNames(), ElementsAre("ムあ")) << page;
    }
}

TEST_P(BothViews, ControlCharactersStayWithTheView) {
    TypeB();
    face->DV_SelectAndScroll(3);
    for (const UINT character : {1U, 9U, 13U, 27U, 127U}) {
        window->SendMessage(WM_CHAR, character, 1);
        EXPECT_THAT(SelectedNames(), ElementsAre("Dunn"))
            << "the box searched again, " << character;
    }
    EXPECT_EQ(TextOf(box), "b");
}

TEST_P(BothViews, KeysThatLeaveTheLookupClearTheBoxAndMove) {
    for (const UINT key : {VK_UP, VK_DOWN, VK_PRIOR, VK_NEXT}) {
        TypeB();
        system.PressKey(key);
        EXPECT_EQ(TextOf(box), "") << key;
        EXPECT_NE(face->DV_GetFirstSelectedItem(), 1) << key;
    }
    for (const UINT key : {VK_HOME, VK_END, VK_F2}) {
        TypeB();
        system.PressKey(key);
        EXPECT_EQ(TextOf(box), "b") << key;
    }
}

TEST_P(BothViews, AClickOrAKeyPressedInTheBoxClearsItAndSelects) {
    TypeB();
    box.SetFocus();
    system.PressKey(VK_DOWN);
    EXPECT_EQ(TextOf(box), "");
    EXPECT_THAT(SelectedNames(), ElementsAre("Carter"));
    window->SetFocus();
    TypeB();
    system.Click(*window, Middle(*window, 2));
    EXPECT_EQ(TextOf(box), "");
    EXPECT_THAT(SelectedNames(), ElementsAre("Carter"));
}

TEST_P(BothViews, WithoutABoxTheViewStillAnswers) {
    face->DV_SetEdit(nullptr);
    face->DV_SelectAndScroll(1);

    system.TypeText("cム");
    system.PressKey(VK_BACK);
    EXPECT_THAT(SelectedNames(), ElementsAre("Baker"));
    system.PressKey(VK_DOWN);
    EXPECT_THAT(SelectedNames(), ElementsAre("Carter"));
    system.Click(*window, Middle(*window, 0));
    EXPECT_THAT(SelectedNames(), ElementsAre("Adams"));
}

TEST_P(BothViews, AnItemThatIsNotThereIsHarmless) {
    for (const int index : {-1, 4}) {
        EXPECT_EQ(RecordAt(index), nullptr);
        EXPECT_EQ(face->DV_IsItemSelected(index), 0);
        EXPECT_EQ(face->DV_VerifyCategoryAndPrivate(index, kAllCategories, 0), 0);
        face->DV_Update(index);
        face->DV_DeleteItem(index);
    }
    EXPECT_EQ(face->DV_GetItemCount(), 4);
    EXPECT_EQ(face->DV_Lookup("nobody"), -1);
}

}  // namespace
}  // namespace orvo
