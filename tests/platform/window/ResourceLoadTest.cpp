// Resources: pictures in the XPM form, menus and dialogs, and what becomes of damaged ones.
// SPDX-License-Identifier: MIT
#include <random>

#include <gtest/gtest.h>

#include <platform/module/ResourceHandle.h>
#include <platform/module/TextsModule.h>
#include <platform/window/base/Cursor.h>
#include <platform/window/base/Icon.h>
#include <platform/window/dialogs/CMenu.h>
#include <platform/window/dialogs/DialogTemplate.h>
#include <platform/window/pictures/XpmPicture.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

constexpr const char* kPixel = "/* XPM */\"1 1 1 1 0 0\",\"a c red\",\"a\"";

// One resource of each kind, all of them the text, and one string.
struct InReach {
    explicit InReach(const std::string& text) : module({{7, "山"}}, {{1, text}}) {
        AfxSetResourceHandle(&module);
    }
    ~InReach() { AfxSetResourceHandle(nullptr); }
    InReach(const InReach&) = delete;
    InReach& operator=(const InReach&) = delete;
    TextsModule module;
};

TEST(ResourceLoad, ABitmapThatIsNotThereLeavesAnEmptyOneAndAnIconTheFormer) {
    const InReach pixel(kPixel);
    CBitmap bitmap;
    EXPECT_TRUE(bitmap.LoadBitmap(1));
    EXPECT_EQ(bitmap.GetPixel({0, 0}), RGB(255, 0, 0));
    EXPECT_FALSE(bitmap.LoadBitmap(2));
    EXPECT_TRUE(bitmap.IsEmpty());
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
    for (const char* text :
         {"# nothing", "size 10 10", "font 8 Sans", "size 10\nfont 8 Sans",
          "size 0 10\nfont 8 Sans", "size 10 10\nfont 8", "size 10 10\nfont Sans 8", kPixel}) {
        const InReach dialogText(text);
        EXPECT_FALSE(LoadDialogTemplate(1)) << text;
    }
    for (const char* line :
         {"static -1 0 0 1 1", "static -1 0 0 1 x 7", "static -1 0 0 -1 1 7",
          "static -1 2147483647 0 1 1 7", "static -1 0 0 1 1 7 shiny", "slider -1 0 0 1 1 7"}) {
        const InReach dialogText(head + line);
        EXPECT_FALSE(LoadDialogTemplate(1)) << line;
    }
    const InReach dialogText(head + "push-button 3 1 2 30 40 7");
    const auto dialog = LoadDialogTemplate(1);
    ASSERT_TRUE(dialog && dialog->controls.size() == 1);
    EXPECT_EQ(dialog->controls[0].kind, ControlKind::PushButton);
    EXPECT_EQ(dialog->controls[0].rectangle, (CRect{1, 2, 31, 42}));
    EXPECT_FALSE(LoadDialogTemplate(2));
}

constexpr std::string_view kArrow = R"(/* XPM */
/* Its "ground" is clear. */
static char *arrow[] = {
/* columns rows colours chars-per-pixel */
"3 2 4 2 1 0",
"   c None",
"r. c #FF8000",
"b. m white c blue g black",
"x. c #123400005678",
"  r.  ",
"b.x.b."
};
)";

TEST(XpmPicture, APaintProgramsFileIsRead) {
    const auto picture = ReadXpmPicture(kArrow);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->pixels.Size(), (CSize{3, 2}));
    EXPECT_EQ(picture->hotSpot, (CPoint{1, 0}));
    EXPECT_EQ(picture->pixels.GetPixel({0, 0}), picture->clear);
    EXPECT_EQ(picture->pixels.GetPixel({1, 0}), RGB(255, 128, 0));
    EXPECT_EQ(picture->pixels.GetPixel({0, 1}), RGB(0, 0, 255));
    EXPECT_EQ(picture->pixels.GetPixel({1, 1}), RGB(0x12, 0, 0x56));
}

TEST(XpmPicture, TheClearColourIsNoneThatIsDrawn) {
    const auto picture = ReadXpmPicture("/* XPM */\"2 1 2 1\",\"m c magenta\",\"n c none\",\"mn\"");
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->pixels.GetPixel({0, 0}), RGB(255, 0, 255));
    EXPECT_EQ(picture->pixels.GetPixel({1, 0}), picture->clear);
    EXPECT_NE(picture->clear, RGB(255, 0, 255));
    EXPECT_EQ(picture->hotSpot, std::nullopt);
}

TEST(XpmPicture, AnExtensionHoldsTheOutline) {
    const auto picture = ReadXpmPicture(
        "/* XPM */\"1 1 1 1 XPMEXT\",\"a c red\",\"a\",\"XPMEXT outline M1 2\",\"XPMENDEXT\"");
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->pixels.Outline(), "M1 2");
}

TEST(XpmPicture, WhatIsNoSoundPictureGivesNothing) {
    constexpr const char* kRows[][2] = {
        {"empty", ""},
        {"another form of picture", "\x89PNG\r\n"},
        {"no head", "\"1 1 1 1\",\"a c red\",\"a\""},
        {"no values", "/* XPM */ static char *x[] = {};"},
        {"too few values", "/* XPM */\"1 1 1\",\"a c red\",\"a\""},
        {"one value of a hot spot", "/* XPM */\"1 1 1 1 0\",\"a c red\",\"a\""},
        {"a value that isn't a number", "/* XPM */\"1 1 1 1x\",\"a c red\",\"a\""},
        {"no width", "/* XPM */\"0 1 1 1\",\"a c red\",\"\""},
        {"a height below 0", "/* XPM */\"1 -1 1 1\",\"a c red\",\"a\""},
        {"names of no length", "/* XPM */\"1 1 1 0\",\" c red\",\"\""},
        {"too wide", "/* XPM */\"5000 1 1 1\",\"a c red\",\"a\""},
        {"beyond any number", "/* XPM */\"99999999999 1 1 1\",\"a c red\",\"a\""},
        {"a large picture that isn't there", "/* XPM */\"4096 4096 1 8\",\"a c red\",\"a\""},
        {"fewer rows than told", "/* XPM */\"1 2 1 1\",\"a c red\",\"a\""},
        {"more rows than told", "/* XPM */\"1 1 1 1\",\"a c red\",\"a\",\"a\""},
        {"a row too short", "/* XPM */\"2 1 1 1\",\"a c red\",\"a\""},
        {"a row too long", "/* XPM */\"1 1 1 1\",\"a c red\",\"aa\""},
        {"a pixel of no colour", "/* XPM */\"1 1 1 1\",\"a c red\",\"b\""},
        {"a name twice", "/* XPM */\"1 1 2 1\",\"a c red\",\"a c blue\",\"a\""},
        {"a name cut short", "/* XPM */\"1 1 1 4\",\"a c\",\"aaaa\""},
        {"no colour", "/* XPM */\"1 1 1 1\",\"a c\",\"a\""},
        {"a colour for grey screens alone", "/* XPM */\"1 1 1 1\",\"a g red\",\"a\""},
        {"an unknown colour", "/* XPM */\"1 1 1 1\",\"a c reddish\",\"a\""},
        {"a wrong digit", "/* XPM */\"1 1 1 1\",\"a c #FF00G0\",\"a\""},
        {"a sign among the digits", "/* XPM */\"1 1 1 1\",\"a c #FF-1+2\",\"a\""},
        {"five digits", "/* XPM */\"1 1 1 1\",\"a c #FF000\",\"a\""},
        {"a text without end", "/* XPM */\"1 1 1 1\",\"a c red\",\"a"},
        {"a comment without end", "/* XPM */\"1 1 1 1\",\"a c red\",/*\"a\""},
    };
    for (const auto& [why, text] : kRows) EXPECT_FALSE(ReadXpmPicture(text)) << why;
    EXPECT_TRUE(ReadXpmPicture("/* XPM */\"1 1 1 1\",\"a c red\",\"a\""));
}

TEST(XpmPicture, ADamagedFileIsRefusedOrGivesAPictureNoLargerThanItself) {
    std::mt19937 random(20270111);
    int read = 0;
    for (int round = 0; round < 20'000; ++round) {
        std::string damaged(kArrow);
        for (unsigned changes = 1 + random() % 4; changes > 0; --changes) {
            damaged[random() % damaged.size()] = static_cast<char>(random());
        }
        const auto picture = ReadXpmPicture(damaged);
        if (!picture) continue;
        ++read;
        const CSize size = picture->pixels.Size();
        ASSERT_LE(size.cx * size.cy, static_cast<int>(damaged.size())) << damaged;
    }
    EXPECT_GT(read, 0) << "damage in a comment does no harm";
}

}  // namespace
}  // namespace orvo
