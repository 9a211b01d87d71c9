// Loading pictures, menus and dialogs from the modules in reach.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <platform/module/ResourceHandle.h>
#include <platform/window/base/Cursor.h>
#include <platform/window/base/Icon.h>
#include <platform/window/dialogs/CMenu.h>
#include <platform/window/dialogs/DialogTemplate.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

constexpr const char* kPixel = "/* XPM */\"1 1 1 1 0 0\",\"a c red\",\"a\"";

// Holds one resource of each kind, all with the same text, and few strings.
class OneTextModule : public Module {
public:
    explicit OneTextModule(std::string text) : m_text(std::move(text)) {}

    bool FindString(unsigned number, std::string& utf8) const override {
        if (number == 7) utf8 = "山";
        return number == 7;
    }
    std::string_view FindResource(ResourceKind, unsigned number) const override {
        return number == 1 ? std::string_view(m_text) : std::string_view();
    }

private:
    std::string m_text;
};

struct InReach {
    explicit InReach(const std::string& text) : module(text) { AfxSetResourceHandle(&module); }
    ~InReach() { AfxSetResourceHandle(nullptr); }
    InReach(const InReach&) = delete;
    InReach& operator=(const InReach&) = delete;
    OneTextModule module;
};

TEST(ResourceLoad, ABitmapThatIsNotThereLeavesAnEmptyOne) {
    const InReach pixel(kPixel);
    CBitmap bitmap;
    EXPECT_TRUE(bitmap.LoadBitmap(1));
    EXPECT_EQ(bitmap.GetPixel({0, 0}), RGB(255, 0, 0));
    EXPECT_FALSE(bitmap.LoadBitmap(2));
    EXPECT_TRUE(bitmap.IsEmpty());
}

TEST(ResourceLoad, AnIconThatIsNotThereLeavesTheFormer) {
    const InReach pixel(kPixel);
    Icon icon;
    EXPECT_TRUE(LoadIcon(1, icon));
    EXPECT_FALSE(LoadIcon(2, icon));
    EXPECT_EQ(icon.picture.Size(), (CSize{1, 1}));
}

TEST(ResourceLoad, ACursorOutlivesItsModule) {
    HCURSOR cursor = nullptr;
    {
        const InReach pixel(kPixel);
        cursor = LoadCursor(1);
    }
    ASSERT_NE(cursor, nullptr);
    EXPECT_EQ(cursor->picture.GetPixel({0, 0}), RGB(255, 0, 0));
    EXPECT_EQ(LoadCursor(1), nullptr) << "nothing is in reach any more";
}

TEST(ResourceLoad, AMenuThatExistsIsNotLoadedOver) {
    const InReach menuText("popup 7\n\titem 7\r\n# a remark\n\n item 8");
    CMenu menu;
    EXPECT_EQ(menu.LoadMenu(2), 0);
    ASSERT_NE(menu.LoadMenu(1), 0);
    EXPECT_EQ(menu.LoadMenu(1), 0);
    EXPECT_EQ(menu.GetMenuItemCount(), 1);
    EXPECT_EQ(menu.GetSubMenu(0)->GetMenuItemCount(), 2);

    menu.DestroyMenu();
    EXPECT_NE(menu.LoadMenu(1), 0);
}

TEST(ResourceLoad, TextsComeInTheCodePageOfTheSystem) {
    const InReach menuText("popup 7\nitem 7\nitem 8");
    for (const unsigned codePage : {65001U, 932U}) {
        const LocaleInForce locale("ja-JP", codePage);
        CMenu menu;
        menu.LoadMenu(1);
        CString text;
        menu.GetMenuString(7, text, MF_BYCOMMAND);
        EXPECT_EQ(text, codePage == 932 ? "\x8E\x52" : "\xE5\xB1\xB1");
        EXPECT_EQ(menu.GetMenuString(8, text, MF_BYCOMMAND), 0) << "the module has no such string";
    }
}

TEST(ResourceLoad, AMenuWithAnUnknownLineIsNone) {
    constexpr const char* kTexts[] = {
        "# no popup",           "item 7\npopup 7",     "popup 7\nitem",
        "popup 7\nitem 7 8",    "popup 7\nitem seven", "popup 7\nitem -7",
        "popup 7\nseparator 7", "popup 99999999999",   kPixel,
    };
    for (const char* text : kTexts) {
        const InReach menuText(text);
        CMenu menu;
        EXPECT_EQ(menu.LoadMenu(1), 0) << text;
        EXPECT_EQ(menu.GetMenuItemCount(), 0) << text;
        EXPECT_NE(menu.CreatePopupMenu(), 0) << text << ": it must not exist";
    }
}

TEST(ResourceLoad, ADialogWithAnUnknownLineIsNone) {
    const std::string head = "size 10 10\nfont 8 Sans\n";
    const std::string kTexts[] = {"# nothing",
                                  "size 10 10",
                                  "font 8 Sans",
                                  "size 10\nfont 8 Sans",
                                  "size 0 10\nfont 8 Sans",
                                  "size 10 10\nfont 8",
                                  "size 10 10\nfont Sans 8",
                                  head + "static -1 0 0 1 1",
                                  head + "static -1 0 0 1 x 7",
                                  head + "static -1 0 0 -1 1 7",
                                  head + "static -1 2147483647 0 1 1 7",
                                  head + "static -1 0 0 1 1 7 shiny",
                                  head + "slider -1 0 0 1 1 7",
                                  kPixel};
    for (const std::string& text : kTexts) {
        const InReach dialogText(text);
        EXPECT_FALSE(LoadDialogTemplate(1)) << text;
    }
    const InReach dialogText(head + "push-button 3 1 2 30 40 7");
    const auto dialog = LoadDialogTemplate(1);
    ASSERT_TRUE(dialog);
    ASSERT_EQ(dialog->controls.size(), 1U);
    EXPECT_EQ(dialog->controls[0].kind, ControlKind::PushButton);
    EXPECT_EQ(dialog->controls[0].rectangle, (CRect{1, 2, 31, 42}));
    EXPECT_EQ(LoadDialogTemplate(2).has_value(), false);
}

}  // namespace
}  // namespace orvo
