// The card view: what it tells its parent, and its saved size.
// SPDX-License-Identifier: MIT
#include <contracts/Profile.h>
#include <orvoshare/addressviews/ViewFixture.h>
#include <platform/settings/SettingsFixture.h>
#include <platform/window/base/WindowInput.h>
#include <support/OwnerWindow.h>

namespace orvo {
namespace {

class AddressCard : public SettingsFixture, public ViewFixture {
protected:
    AddressCard() {
        parent.Create(WS_POPUP, {0, 0, 600, 460}, nullptr, 0);
        view.DestroyWindow();
        view.Create(WS_CHILD | WS_VISIBLE, {0, 0, 600, 400}, &parent, 1);
        FillWith({"Adams", "Baker", "Carter"});
        view.SetFocus();
        parent.told.clear();
    }
    ~AddressCard() override { parent.DestroyWindow(); }

    LocaleInForce locale{"en-US"};
    OwnerWindow parent;
};

TEST_F(AddressCard, TheParentIsToldWhatTheUserDid) {
    system.Click(view, Middle(view, 1));
    EXPECT_THAT(parent.TakeTold(), ElementsAre(ID_DV_SELECTION_CHANGED));
    system.PressKey(VK_RETURN);
    EXPECT_THAT(parent.TakeTold(), ElementsAre(ID_DV_RETURN_KEY));
    system.DoubleClick(view, Middle(view, 1));
    EXPECT_THAT(parent.TakeTold(), ElementsAre(ID_DV_ITEM_DBLCLK));
    system.RightClick(view, Middle(view, 1));
    EXPECT_THAT(parent.TakeTold(), ElementsAre(ID_DV_ITEM_RCLICK));
    system.RightClick(view, {599, 399});
    EXPECT_THAT(parent.TakeTold(), testing::Contains(ID_DV_BACKGROUND_RCLICK));

    view.DV_SelectItem(0, 1);
    EXPECT_THAT(parent.TakeTold(), ElementsAre(ID_DV_SELECTION_CHANGED)) << "at once";
    view.SendMessage(WM_RBUTTONDOWN, 0, MAKELPARAM(Middle(view, 0).x, Middle(view, 0).y));
    EXPECT_THAT(parent.told, IsEmpty()) << "later";
    PumpMessages();
    EXPECT_THAT(parent.told, ElementsAre(ID_DV_ITEM_RCLICK));
}

TEST_F(AddressCard, MaskingTwiceRepaintsOnce) {
    view.UpdateWindow();
    Peer().ForgetDrawn();
    view.DV_SetMaskPrivate(1);
    EXPECT_FALSE(Peer().Drawn().empty());
    Peer().ForgetDrawn();
    view.DV_SetMaskPrivate(1);
    EXPECT_TRUE(Peer().Drawn().empty());
}

TEST_F(AddressCard, TheSizeOfTheCardsComesBack) {
    view.SetCardSize(300, 200, 1);
    EXPECT_EQ(view.WriteCardSize(nullptr), 0);
    EXPECT_EQ(view.ReadCardSize("Cards"), 0) << "nothing is saved yet";
    EXPECT_EQ(view.WriteCardSize("Cards"), 1);
    view.SetCardSize(100, 100, 1);

    EXPECT_EQ(view.ReadCardSize("Cards"), 1);
    OUIWriteProfileInt("Half", "BusCardWidth", 90);
    EXPECT_EQ(view.ReadCardSize("Half"), 0);
    EXPECT_EQ(view.ReadCardSize(nullptr), 0);
    int width = 0;
    int height = 0;
    view.GetCardSize(&width, &height);
    EXPECT_EQ((CSize{width, height}), (CSize{300, 200}));
}

}  // namespace
}  // namespace orvo
