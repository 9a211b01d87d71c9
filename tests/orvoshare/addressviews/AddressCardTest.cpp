// The card view: its keys and clicks, what it tells its parent, and its saved size.
// SPDX-License-Identifier: MIT
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <contracts/Profile.h>
#include <orvoshare/addressviews/DetailViewAddrCard.h>
#include <orvoshare/addressviews/LookupEdit.h>
#include <platform/settings/SettingsFixture.h>
#include <platform/window/MemoryWindowPeer.h>
#include <platform/window/WindowFixture.h>
#include <platform/window/WindowInput.h>
#include <support/AddressFixture.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Writes down the commands that it is told, and whether they were sent while a handler ran.
class ParentWindow : public CWnd {
public:
    std::vector<UINT> told;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_COMMAND && HIWORD(wParam) == 0) told.push_back(LOWORD(wParam));
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

class AddressCard : public SettingsFixture {
protected:
    AddressCard() {
        parent.Create(WS_POPUP, {0, 0, 600, 460}, nullptr, 0);
        cards.Create(WS_CHILD | WS_VISIBLE, {0, 0, 600, 400}, &parent, 1);
        box.Create(WS_CHILD | WS_VISIBLE, {0, 400, 600, 420}, &parent, 2);
        cards.Initialize(&addresses.table);
        cards.DV_SetEdit(&box);
        box.SetListBox(&cards);
        for (const char* name : {"Adams", "Baker", "Carter"}) {
            addresses.table.Add(*addresses.Make({{AddressField::Name, name}}));
        }
        cards.DV_FillFromTable(&addresses.table, kAllCategories, 0, 1);
        cards.SetFocus();
        parent.told.clear();
    }
    ~AddressCard() override { parent.DestroyWindow(); }

    CPoint Middle(int index) {
        CRect rect;
        EXPECT_TRUE(
            dynamic_cast<ListPeer&>(*cards.GetPeer()).RowRect(index, RowPart::Bounds, rect));
        return rect.CenterPoint();
    }
    CString BoxText() {
        CString text;
        box.GetWindowText(text);
        return text;
    }

    LocaleInForce locale{"en-US"};
    SystemInForce system;
    AddressFixture addresses;
    ParentWindow parent;
    CLookupEdit box;
    CDetailViewAddrCard cards;
};

TEST_F(AddressCard, TheParentIsToldWhatTheUserDid) {
    system.Click(cards, Middle(1));
    EXPECT_THAT(parent.told, ElementsAre(ID_DV_SELECTION_CHANGED));
    parent.told.clear();
    system.PressKey(VK_RETURN);
    EXPECT_THAT(parent.told, ElementsAre(ID_DV_RETURN_KEY));
    parent.told.clear();
    system.DoubleClick(cards, Middle(1));
    EXPECT_THAT(parent.told, ElementsAre(ID_DV_ITEM_DBLCLK));
    parent.told.clear();
    system.RightClick(cards, Middle(1));
    EXPECT_THAT(parent.told, ElementsAre(ID_DV_ITEM_RCLICK));
    parent.told.clear();
    system.RightClick(cards, {599, 399});
    EXPECT_THAT(parent.told, testing::Contains(ID_DV_BACKGROUND_RCLICK));
}

TEST_F(AddressCard, TheSelectionIsToldAtOnceAndTheRestLater) {
    cards.DV_SelectItem(0, 1);
    EXPECT_THAT(parent.told, ElementsAre(ID_DV_SELECTION_CHANGED));
    parent.told.clear();
    cards.SendMessage(WM_RBUTTONDOWN, 0, MAKELPARAM(Middle(0).x, Middle(0).y));
    EXPECT_THAT(parent.told, IsEmpty());
    PumpMessages();
    EXPECT_THAT(parent.told, ElementsAre(ID_DV_ITEM_RCLICK));
}

TEST_F(AddressCard, WhatIsTypedGoesToTheBoxAndArrowsEmptyIt) {
    system.TypeText("ba");
    EXPECT_EQ(BoxText(), "ba");
    EXPECT_EQ(cards.DV_GetFirstSelectedItem(), 1);

    system.PressKey(VK_LEFT);
    EXPECT_EQ(BoxText(), "ba");
    system.TypeText("\x01");
    EXPECT_EQ(BoxText(), "ba");
    system.PressKey(VK_UP);
    EXPECT_EQ(BoxText(), "");
    EXPECT_EQ(cards.DV_GetFirstSelectedItem(), 0);

    system.TypeText("c");
    system.Click(cards, {599, 399});
    EXPECT_EQ(BoxText(), "") << "also beside all cards";
}

TEST_F(AddressCard, MaskingTwiceRepaintsOnce) {
    auto& peer = dynamic_cast<MemoryWindowState&>(*cards.GetPeer());
    cards.UpdateWindow();
    peer.ForgetDrawn();
    cards.DV_SetMaskPrivate(1);
    EXPECT_FALSE(peer.Drawn().empty());
    peer.ForgetDrawn();
    cards.DV_SetMaskPrivate(1);
    EXPECT_TRUE(peer.Drawn().empty());
}

TEST_F(AddressCard, TheSizeOfTheCardsComesBack) {
    int width = 0;
    int height = 0;
    cards.SetCardSize(300, 200, 1);
    EXPECT_EQ(cards.WriteCardSize(nullptr), 0);
    EXPECT_EQ(cards.ReadCardSize("Cards"), 0) << "nothing is saved yet";
    EXPECT_EQ(cards.WriteCardSize("Cards"), 1);
    cards.SetCardSize(100, 100, 1);

    EXPECT_EQ(cards.ReadCardSize("Cards"), 1);
    cards.GetCardSize(&width, &height);
    EXPECT_EQ(width, 300);
    EXPECT_EQ(height, 200);

    OUIWriteProfileInt("Half", "BusCardWidth", 90);
    EXPECT_EQ(cards.ReadCardSize("Half"), 0);
    EXPECT_EQ(cards.ReadCardSize(nullptr), 0);
    cards.GetCardSize(&width, &height);
    EXPECT_EQ(width, 300);
}

}  // namespace
}  // namespace orvo
