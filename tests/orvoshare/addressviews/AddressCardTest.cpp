// The card view: what it tells its parent, and its saved size.
// SPDX-License-Identifier: MIT
#include <contracts/Profile.h>
#include <orvoshare/addressviews/ViewFixture.h>
#include <platform/settings/SettingsFixture.h>
#include <platform/window/base/WindowInput.h>
#include <support/OwnerWindow.h>

namespace orvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AddressCard : public SettingsFixture, public AddressFixture {
protected:
    AddressCard() {
        parent.Create(WS_POPUP, {0, 0, 600, 460}, nullptr, 0);
        cards.Create(WS_CHILD | WS_VISIBLE, {0, 0, 600, 400}, &parent, 1);
        cards.Initialize(&table);
        for (const char* name : {"Adams", "Baker", "Carter"}) {
            table.Add(*Make({{AddressField::Name, name}}));
        }
        cards.DV_FillFromTable(&table, kAllCategories, 0, 1);
        cards.SetFocus();
        parent.told.clear();
    }
    ~AddressCard() override { parent.DestroyWindow(); }

    MemoryListPeer& Peer() { return dynamic_cast<MemoryListPeer&>(*cards.GetPeer()); }
    CPoint Middle(int index) {
        CRect rect;
        EXPECT_TRUE(Peer().RowRect(index, RowPart::Bounds, rect));
        return rect.CenterPoint();
    }
    CSize Size() const {
        int width = 0;
        int height = 0;
        cards.GetCardSize(&width, &height);
        return {width, height};
    }

    LocaleInForce locale{"en-US"};
    SystemInForce system;
    OwnerWindow parent;
    CDetailViewAddrCard cards;
};

TEST_F(AddressCard, TheParentIsToldWhatTheUserDid) {
    system.Click(cards, Middle(1));
    EXPECT_THAT(parent.TakeTold(), ElementsAre(ID_DV_SELECTION_CHANGED));
    system.PressKey(VK_RETURN);
    EXPECT_THAT(parent.TakeTold(), ElementsAre(ID_DV_RETURN_KEY));
    system.DoubleClick(cards, Middle(1));
    EXPECT_THAT(parent.TakeTold(), ElementsAre(ID_DV_ITEM_DBLCLK));
    system.RightClick(cards, Middle(1));
    EXPECT_THAT(parent.TakeTold(), ElementsAre(ID_DV_ITEM_RCLICK));
    system.RightClick(cards, {599, 399});
    EXPECT_THAT(parent.TakeTold(), testing::Contains(ID_DV_BACKGROUND_RCLICK));
}

TEST_F(AddressCard, TheSelectionIsToldAtOnceAndTheRestLater) {
    cards.DV_SelectItem(0, 1);
    EXPECT_THAT(parent.TakeTold(), ElementsAre(ID_DV_SELECTION_CHANGED));
    cards.SendMessage(WM_RBUTTONDOWN, 0, MAKELPARAM(Middle(0).x, Middle(0).y));
    EXPECT_THAT(parent.told, IsEmpty());
    PumpMessages();
    EXPECT_THAT(parent.told, ElementsAre(ID_DV_ITEM_RCLICK));
}

TEST_F(AddressCard, MaskingTwiceRepaintsOnce) {
    cards.UpdateWindow();
    Peer().ForgetDrawn();
    cards.DV_SetMaskPrivate(1);
    EXPECT_FALSE(Peer().Drawn().empty());
    Peer().ForgetDrawn();
    cards.DV_SetMaskPrivate(1);
    EXPECT_TRUE(Peer().Drawn().empty());
}

TEST_F(AddressCard, TheSizeOfTheCardsComesBack) {
    cards.SetCardSize(300, 200, 1);
    EXPECT_EQ(cards.WriteCardSize(nullptr), 0);
    EXPECT_EQ(cards.ReadCardSize("Cards"), 0) << "nothing is saved yet";
    EXPECT_EQ(cards.WriteCardSize("Cards"), 1);
    cards.SetCardSize(100, 100, 1);

    EXPECT_EQ(cards.ReadCardSize("Cards"), 1);
    EXPECT_EQ(Size(), (CSize{300, 200}));

    OUIWriteProfileInt("Half", "BusCardWidth", 90);
    EXPECT_EQ(cards.ReadCardSize("Half"), 0);
    EXPECT_EQ(cards.ReadCardSize(nullptr), 0);
    EXPECT_EQ(Size(), (CSize{300, 200}));
}

}  // namespace
}  // namespace orvo
