// The window system without a screen: questions, menus, cursors, colours and measures.
// SPDX-License-Identifier: MIT
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <platform/window/CDC.h>
#include <platform/window/CMenu.h>
#include <platform/window/CWnd.h>
#include <platform/window/MemoryWindowPeer.h>
#include <platform/window/WindowFixture.h>
#include <platform/window/WindowInput.h>
#include <support/CodePages.h>
#include <support/LocaleInForce.h>

namespace orvo {

namespace {

constexpr UINT kReturns = TPM_CENTERALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD;

TEST(PopupMenu, GivesTheCommandThatWasChosen) {
    SystemInForce system;
    CMenu menu;
    EXPECT_FALSE(menu.AppendMenu(MF_STRING, 1, "before it exists"));
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, 1574, "Unfiled");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING | MF_GRAYED, 1575, "Business");
    menu.CheckMenuItem(1574, MF_CHECKED);

    system.ChooseText("Unfiled");
    EXPECT_EQ(menu.TrackPopupMenu(kReturns, 7, 8, nullptr), 1574);
    system.ChooseCommand(0);
    EXPECT_EQ(menu.TrackPopupMenu(kReturns, 7, 8, nullptr), 0);

    const ShownMenu& shown = system.Menus().front();
    ASSERT_EQ(shown.items.size(), 3U);
    EXPECT_EQ(shown.items[0].state, MF_CHECKED);
    EXPECT_EQ(shown.flags, 0x106U);
    EXPECT_EQ(shown.point, (CPoint{7, 8}));
}

TEST(PopupMenu, AChoiceThatCanNotBeMadeIsComplainedOf) {
    MemoryWindowSystem system;
    std::vector<std::string> complaints;
    system.OnUnexpectedQuestion([&](const std::string& text) { complaints.push_back(text); });
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING | MF_GRAYED, 5, "Gray");

    EXPECT_EQ(system.TrackPopupMenu(menu, kReturns, {}, nullptr), 0U);
    system.ChooseCommand(5);
    EXPECT_EQ(system.TrackPopupMenu(menu, kReturns, {}, nullptr), 0U);
    system.ChooseText("Absent");
    EXPECT_EQ(system.TrackPopupMenu(menu, kReturns, {}, nullptr), 0U);
    EXPECT_EQ(system.ShowMessageBox(nullptr, "Sure?", MB_YESNO), IDCANCEL);
    CTime day;
    EXPECT_FALSE(system.PickDay(nullptr, day));

    EXPECT_THAT(complaints,
                testing::ElementsAre("a menu was shown", "the menu has no command 5 to choose",
                                     "the menu has no item \"Absent\" to choose",
                                     "a message box was shown: Sure?", "a day was asked for"));
}

TEST(PopupMenu, WithoutReturnTheCommandIsPostedToItsOwner) {
    SystemInForce system;
    struct Owner : CWnd {
        const MessageMap& GetMessageMap() const override {
            static const MessageMap map{ThisMap(), {OnCommand(12, &Owner::OnTwelve)}};
            return map;
        }
        void OnTwelve() { ++commands; }
        int commands = 0;
    } owner;
    owner.Create(WS_POPUP, {}, nullptr, 0);
    auto submenu = std::make_unique<CMenu>();
    submenu->CreatePopupMenu();
    submenu->AppendMenu(MF_STRING, 12, "Twelve");
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(std::move(submenu), "More");

    system.ChooseCommand(12);
    EXPECT_TRUE(menu.TrackPopupMenu(0, 0, 0, &owner));
    EXPECT_EQ(owner.commands, 0);
    PumpMessages();

    EXPECT_EQ(owner.commands, 1);
}

TEST(Questions, AreAnsweredInTheOrderOfTheScript) {
    SystemInForce system;
    const CTime day(2026, 5, 1, 0, 0, 0);
    system.AnswerMessageBox(IDYES);
    system.AnswerMessageBox(IDNO);
    system.AnswerDay(day);
    system.AnswerDay(std::nullopt);

    EXPECT_EQ(AfxMessageBox("Delete?", MB_YESNO), IDYES);
    EXPECT_EQ(AfxMessageBox("Really?", MB_YESNO), IDNO);
    CTime picked(2026, 1, 1, 0, 0, 0);
    EXPECT_TRUE(system.PickDay(nullptr, picked));
    EXPECT_EQ(picked, day);
    EXPECT_FALSE(system.PickDay(nullptr, picked));

    EXPECT_EQ(picked, day);
    EXPECT_THAT(system.MessageBoxes(), testing::ElementsAre("Delete?", "Really?"));
}

TEST(Cursors, TheWaitingShapeGivesWayToTheOneBefore) {
    SystemInForce system;
    const HCURSOR hand = LoadStandardCursor(IDC_HAND);
    SetCursor(hand);
    {
        const CWaitCursor wait;
        EXPECT_EQ(GetCursor(), LoadStandardCursor(IDC_WAIT));
    }
    EXPECT_EQ(system.Cursors().back(), hand);
}

TEST(Cursors, AWindowThatSaysNothingShowsTheArrowUnderThePointer) {
    SystemInForce system;
    CWnd window;
    window.Create(WS_POPUP, {100, 100, 200, 200}, nullptr, 0);
    SetCursor(LoadStandardCursor(IDC_HAND));

    system.MovePointer(window, {5, 6});

    EXPECT_EQ(GetCursor(), LoadStandardCursor(IDC_ARROW));
    CPoint pointer;
    GetCursorPos(&pointer);
    EXPECT_EQ(pointer, (CPoint{105, 106}));
}

class TextMeasure : public testing::TestWithParam<LocaleCase> {};
INSTANTIATE_TEST_SUITE_P(BothPages, TextMeasure, testing::ValuesIn(kBothCodePages));

TEST_P(TextMeasure, WideCharactersTakeTwoColumnsAndMarksNone) {
    const LocaleInForce locale(GetParam().tag, GetParam().codePage);
    const bool isDouble = GetParam().codePage == 932;
    EXPECT_EQ(CDC().GetTextExtent("abc").cx, 24);
    EXPECT_EQ(CDC().GetTextExtent(isDouble ? "\x95\x5C" : "表").cx, 16);
    EXPECT_EQ(CDC().GetTextExtent(isDouble ? "\xB1" : "ｱ").cx, 8);
    if (!isDouble) {
        EXPECT_EQ(CDC().GetTextExtent("e\xCC\x81").cx, 8);
    }
}

TEST(ClientDC, DrawsOnItsWindowAtOnceInTheColoursThatAreSet) {
    SystemInForce system;
    CWnd window;
    window.Create(WS_POPUP, {0, 0, 50, 50}, nullptr, 0);
    CClientDC dc(&window);
    dc.SetBkMode(TRANSPARENT);
    dc.SetPenColor(RGB(1, 2, 3));
    dc.TextOut(4, 5, "ab");
    dc.MoveTo(1, 1);
    dc.LineTo(9, 1);
    dc.LineTo(9, 8);

    const Recording& drawn = dynamic_cast<MemoryWindowPeer&>(*window.GetPeer()).Drawn();
    ASSERT_EQ(drawn.size(), 3U);
    EXPECT_EQ(drawn[0].rect, (CRect{4, 5, 20, 21}));
    EXPECT_EQ(drawn[1].colour, RGB(1, 2, 3));
    EXPECT_EQ(drawn[2].rect, (CRect{9, 1, 9, 8}));
}

}  // namespace

}  // namespace orvo
