// Menus, cursors, and drawing on a window, by way of the window system without a screen.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <platform/window/WindowFixture.h>
#include <platform/window/base/CWnd.h>
#include <platform/window/base/WindowInput.h>
#include <platform/window/dialogs/CMenu.h>
#include <platform/window/memory/MemoryWindowPeer.h>
#include <platform/window/pictures/CDC.h>

namespace orvo {

namespace {

TEST(PopupMenu, WithoutReturnTheCommandIsPostedToItsOwner) {
    SystemInForce system;
    struct Owner : CWnd {
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            commands += message == WM_COMMAND && wParam == 12;
            return CWnd::WindowProc(message, wParam, lParam);
        }
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
