// The module's own pictures, menus and dialogs, as views take them.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <contracts/LanguageModule.h>
#include <orvoshare/resources/ResourceTable.h>
#include <orvoshare/resources/StringTable.h>
#include <platform/module/ResourceHandle.h>
#include <platform/window/base/Cursor.h>
#include <platform/window/base/Icon.h>
#include <platform/window/dialogs/CMenu.h>
#include <platform/window/dialogs/DialogTemplate.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::Not;

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kMagenta = RGB(255, 0, 255);
constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);

struct ResourceTest : testing::Test {
    ResourceTest() { AfxSetResourceHandle(OwnModule()); }
    ~ResourceTest() override { AfxSetResourceHandle(nullptr); }

    LocaleInForce locale{"en-US", 65001};
};

// The module of a language, and its resources in reach.
class LanguageInForce {
public:
    explicit LanguageInForce(const char* tag) : m_locale(tag, 65001) {
        CString directory;
        EXPECT_NE(GetOrvoLangDllDirectory(directory), 0) << tag;
        int code = 0;
        m_module = CmnLoadLanguageModule(directory + "\\ORVOSHARELANG.DLL", OwnModule(), &code);
        AfxSetResourceHandle(m_module);
    }
    ~LanguageInForce() {
        AfxSetResourceHandle(OwnModule());
        CmnFreeLanguageModule(m_module, OwnModule());
    }
    LanguageInForce(const LanguageInForce&) = delete;
    LanguageInForce& operator=(const LanguageInForce&) = delete;

private:
    LocaleInForce m_locale;
    HINSTANCE m_module = nullptr;
};

int CountOf(const CBitmap& bitmap, COLORREF colour) {
    int count = 0;
    for (int y = 0; y < bitmap.Size().cy; ++y) {
        for (int x = 0; x < bitmap.Size().cx; ++x) count += bitmap.GetPixel({x, y}) == colour;
    }
    return count;
}

TEST_F(ResourceTest, EveryBitmapHasItsSizeItsGroundAndTheColourThatIsReplaced) {
    struct Row {
        unsigned number;
        CSize size;
        COLORREF ground, replaced;
    };
    const Row kRows[] = {
        {1000, {16, 16}, kRed, kBlack},    {1001, {16, 16}, kRed, RGB(255, 255, 255)},
        {1002, {16, 16}, kRed, kBlack},    {1004, {32, 32}, kMagenta, kBlue},
        {1005, {16, 16}, kMagenta, kBlue}, {1007, {32, 32}, kMagenta, kBlue},
        {1008, {16, 16}, kMagenta, kBlue}, {9165, {16, 16}, kMagenta, kBlue},
        {9166, {32, 32}, kMagenta, kBlue}, {9167, {8, 9}, kMagenta, kBlack},
        {9168, {8, 8}, kBlack, kBlack},
    };
    for (const Row& row : kRows) {
        CBitmap bitmap;
        EXPECT_TRUE(bitmap.LoadBitmap(row.number)) << row.number;
        EXPECT_EQ(bitmap.Size(), row.size) << row.number;
        EXPECT_EQ(bitmap.GetPixel({row.size.cx - 1, 0}), row.ground) << row.number;
        EXPECT_GE(CountOf(bitmap, row.replaced), row.size.cx) << row.number;
    }
}

TEST_F(ResourceTest, ACheckMarkIsBlackAlone) {
    CBitmap bitmap;
    bitmap.LoadBitmap(1002);
    EXPECT_EQ(CountOf(bitmap, kRed) + CountOf(bitmap, kBlack), 256) << "all of it changes colour";
}

TEST_F(ResourceTest, TheHandPointsWithTheTipOfItsFinger) {
    const HCURSOR hand = LoadCursor(1003);
    ASSERT_NE(hand, nullptr);
    EXPECT_EQ(hand->standard, 0);
    EXPECT_NE(hand->picture.GetPixel(hand->hotSpot), hand->clear);
    EXPECT_EQ(hand->picture.GetPixel(hand->hotSpot - CPoint{0, 1}), hand->clear);
    EXPECT_EQ(LoadCursor(1003), hand) << "there is one for the process";
    EXPECT_EQ(LoadCursor(1004), nullptr);
}

std::vector<std::string> ItemsOf(const CMenu& menu) {
    std::vector<std::string> items;
    for (int i = 0; i < menu.GetMenuItemCount(); ++i) {
        CString text;
        menu.GetMenuString(static_cast<UINT>(i), text, MF_BYPOSITION);
        items.push_back(std::to_string(menu.GetMenuItemID(i)) + ' ' + text.Bytes());
    }
    return items;
}

std::vector<std::string> ItemsOfMenu(UINT number) {
    CMenu menu;
    EXPECT_NE(menu.LoadMenu(number), 0);
    const CMenu* const popup = menu.GetSubMenu(0);
    return popup ? ItemsOf(*popup) : std::vector<std::string>();
}

TEST_F(ResourceTest, MenusAndDialogsSpeakTheLanguageOfTheModuleInForce) {
    const LanguageInForce german("de-DE");
    EXPECT_THAT(ItemsOfMenu(9015),
                ElementsAre("9147 Heute", "9148 Morgen", "9149 Eine Woche später",
                            "9150 Kein Datum", "9151 Datum wählen..."));
    const auto dialog = LoadDialogTemplate(1006);
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->controls[0].text, "Bereich:");
    EXPECT_EQ(dialog->controls[1].text, "&Alle");
}

bool Loads(const ResourceFile& file) {
    CBitmap bitmap;
    Icon icon;
    CMenu menu;
    switch (file.kind) {
        case ResourceKind::Bitmap:
            return bitmap.LoadBitmap(file.number);
        case ResourceKind::Icon:
            return LoadIcon(file.number, icon);
        case ResourceKind::Cursor:
            return LoadCursor(file.number) != nullptr;
        case ResourceKind::Menu:
            return menu.LoadMenu(file.number) != 0;
        case ResourceKind::Dialog:
            return LoadDialogTemplate(file.number).has_value();
    }
    return false;
}

TEST_F(ResourceTest, EveryFileLoads) {
    for (const ResourceFile& file : ResourceFiles()) {
        EXPECT_TRUE(Loads(file)) << file.number << '\n' << file.text;
    }
}

// That every language has every text is a test of the module.
TEST_F(ResourceTest, EveryItemAndControlHasAText) {
    for (const ResourceFile& file : ResourceFiles()) {
        std::vector<std::string> texts;
        if (file.kind == ResourceKind::Menu) texts = ItemsOfMenu(file.number);
        if (file.kind == ResourceKind::Dialog) {
            const auto dialog = LoadDialogTemplate(file.number);
            ASSERT_TRUE(dialog) << file.number;
            for (const DialogControl& control : dialog->controls) {
                texts.push_back(std::to_string(control.id) + ' ' + control.text.Bytes());
            }
        }
        EXPECT_THAT(texts, Each(Not(EndsWith(" ")))) << file.number;
    }
}

}  // namespace
}  // namespace orvo
