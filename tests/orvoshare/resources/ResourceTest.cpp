// The module's own pictures, menus and dialogs, as views take them.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <contracts/ResourceScope.h>
#include <orvoshare/ModuleInForce.h>
#include <orvoshare/resources/ResourceTable.h>
#include <platform/window/base/Cursor.h>
#include <platform/window/base/Icon.h>
#include <platform/window/dialogs/CMenu.h>
#include <platform/window/dialogs/DialogTemplate.h>

namespace orvo {
namespace {

using testing::Each;
using testing::EndsWith;
using testing::Not;

// The resources of the module in a language.
struct ResourceTest : testing::Test {
    LocalizedModule module{"de-DE", kUtf8CodePage};
    CDllResourceHandler resources{OrvoShareRecord()};
};

TEST_F(ResourceTest, TheHandPointsWithTheTipOfItsFinger) {
    const HCURSOR hand = LoadCursor(1003);
    ASSERT_NE(hand, nullptr);
    EXPECT_EQ(hand->standard, 0);
    EXPECT_NE(hand->picture.GetPixel(hand->hotSpot), hand->clear);
    EXPECT_EQ(hand->picture.GetPixel(hand->hotSpot - CPoint{0, 1}), hand->clear);
    EXPECT_EQ(LoadCursor(1003), hand) << "there is one for the process";
    EXPECT_EQ(LoadCursor(1004), nullptr);
}

bool HasPixel(const CBitmap& bitmap, COLORREF colour) {
    for (int y = 0; y < bitmap.Size().cy; ++y) {
        for (int x = 0; x < bitmap.Size().cx; ++x) {
            if (bitmap.GetPixel({x, y}) == colour) return true;
        }
    }
    return false;
}

// A picture stands on red or magenta, and has what is replaced by colours of the system.
bool IsPicture(unsigned number) {
    CBitmap bitmap;
    if (!bitmap.LoadBitmap(number)) return false;
    const COLORREF corner = bitmap.GetPixel({bitmap.Size().cx - 1, 0});
    const COLORREF replaced =
        corner == RGB(255, 0, 255) && bitmap.Size().cx > 8 ? RGB(0, 0, 255) : 0;
    constexpr unsigned kStop = 9168;
    return (corner == RGB(255, 0, 0) || corner == RGB(255, 0, 255) || number == kStop) &&
           HasPixel(bitmap, replaced);
}

std::vector<std::string> ItemsOfMenu(UINT number) {
    CMenu menu;
    std::vector<std::string> items;
    if (!menu.LoadMenu(number)) return items;
    const CMenu& popup = *menu.GetSubMenu(0);
    for (int i = 0; i < popup.GetMenuItemCount(); ++i) {
        CString text;
        popup.GetMenuString(static_cast<UINT>(i), text, MF_BYPOSITION);
        items.push_back(std::to_string(popup.GetMenuItemID(i)) + ' ' + text.Bytes());
    }
    return items;
}

std::vector<std::string> ControlsOf(unsigned number) {
    std::vector<std::string> controls;
    const auto dialog = LoadDialogTemplate(number);
    if (!dialog) return controls;
    for (const DialogControl& control : dialog->controls) {
        controls.push_back(std::to_string(control.id) + ' ' + control.text.Bytes());
    }
    return controls;
}

TEST_F(ResourceTest, MenusAndDialogsSpeakTheLanguageOfTheModuleInForce) {
    EXPECT_THAT(ItemsOfMenu(9015),
                testing::ElementsAre("9147 Heute", "9148 Morgen", "9149 Eine Woche später",
                                     "9150 Kein Datum", "9151 Datum wählen..."));
    EXPECT_THAT(ControlsOf(1006), testing::Contains("9001 &Alle"));
}

// That every language has every text is a test of the module.
TEST_F(ResourceTest, EveryFileLoadsAndEveryItemAndControlHasAText) {
    for (const ResourceFile& file : ResourceFiles()) {
        SCOPED_TRACE(file.number);
        Icon icon;
        std::vector<std::string> texts{"none"};
        bool isThere = true;
        if (file.kind == ResourceKind::Bitmap) isThere = IsPicture(file.number);
        if (file.kind == ResourceKind::Icon) isThere = LoadIcon(file.number, icon);
        if (file.kind == ResourceKind::Cursor) isThere = LoadCursor(file.number) != nullptr;
        if (file.kind == ResourceKind::Menu) texts = ItemsOfMenu(file.number);
        if (file.kind == ResourceKind::Dialog) texts = ControlsOf(file.number);
        EXPECT_THAT(texts, Each(Not(EndsWith(" "))));
        EXPECT_TRUE(isThere && !texts.empty());
    }
}

}  // namespace
}  // namespace orvo
