// Windows without a screen: in which order messages are handled, by whom, and what becomes of those
// to dead windows; menus, cursors and drawing.
// SPDX-License-Identifier: MIT
#include <platform/window/NotingList.h>
#include <platform/window/WindowFixture.h>
#include <platform/window/base/WindowInput.h>
#include <platform/window/dialogs/CMenu.h>
#include <platform/window/memory/MemoryWindowPeer.h>
#include <platform/window/pictures/CDC.h>

namespace orvo {
namespace {

using Log = std::vector<std::string>;
constexpr UINT kFirst = WM_APP;
constexpr UINT kSecond = WM_APP + 1;
constexpr UINT kFirstCommand = 1574;
constexpr UINT kLastCommand = 1591;

struct Window : CWnd {
    Window(std::string name, Log& log) : m_name(std::move(name)), m_log(log) {}

    const MessageMap& GetMessageMap() const override {
        static const MessageMap map{
            ThisMap(),
            {On<kFirst>(&Window::OnFirst), On<kSecond>(&Window::OnSecond),
             On<WM_DESTROY>(&Window::OnDestroy), On<WM_CHAR>(&Window::OnChar),
             On<WM_SETFOCUS>(&Window::OnSetFocus), On<WM_KILLFOCUS>(&Window::OnKillFocus),
             OnCommandRange(kFirstCommand, kLastCommand, &Window::OnRange),
             OnCommand(9, &Window::OnNine), OnNotifyFrom<NM_CLICK>(5, &Window::OnChildClick)}};
        return map;
    }
    BOOL PreTranslateMessage(MSG* message) override {
        Note("translate " + std::to_string(message->message));
        return takesKeys && message->message == WM_KEYDOWN;
    }

    void Note(const std::string& what) { m_log.push_back(m_name + ": " + what); }

    bool takesKeys = false;
    Window* other = nullptr;

    LRESULT OnFirst(WPARAM, LPARAM) {
        Note("first begins");
        PostMessage(kSecond);
        if (other) other->SendMessage(kSecond);
        Note("first ends");
        return 7;
    }
    LRESULT OnSecond(WPARAM, LPARAM) {
        Note("second");
        return 0;
    }
    void OnDestroy() {
        Note("destroy");
        DestroyWindow();
    }
    void OnChar(UINT character, UINT repeat, UINT) {
        Note("char " + std::to_string(character) + " x" + std::to_string(repeat));
    }
    void OnSetFocus(CWnd*) { Note("focus"); }
    void OnKillFocus(CWnd* next) { Note(next ? "lost" : "lost to nobody"); }
    void OnRange(UINT id) { Note("command " + std::to_string(id)); }
    void OnNine() { Note("nine"); }
    void OnChildClick(NMHDR*, LRESULT* result) {
        Note("click of a child");
        *result = 3;
    }

    std::string m_name;
    Log& m_log;
};

struct MessageTest : testing::Test {
    void SetUp() override {
        parent.Create(WS_POPUP, {10, 20, 210, 120}, nullptr, 0);
        child.Create(WS_CHILD, {1, 2, 51, 22}, &parent, 5);
        log.clear();
    }

    SystemInForce system;
    Log log;
    Window parent{"parent", log};
    Window child{"child", log};
};

TEST_F(MessageTest, ASentMessageIsHandledAtOnceAndAPostedOneAfterItsHandlerHasLeft) {
    parent.other = &child;

    EXPECT_EQ(parent.SendMessage(WM_COPYDATA), 0) << "nobody handles it";
    EXPECT_EQ(parent.SendMessage(kFirst), 7);
    EXPECT_THAT(log, ElementsAre("parent: first begins", "child: second", "parent: first ends"));
    log.clear();

    EXPECT_EQ(PumpMessages(), 1);
    EXPECT_EQ(log.back(), "parent: second");
}

TEST_F(MessageTest, MessagesThatHandlersPostAreHandledInTheSamePump) {
    parent.PostMessage(kFirst);
    child.PostMessage(kSecond);

    EXPECT_EQ(PumpMessages(), 3);

    EXPECT_THAT(log, testing::IsSupersetOf({"parent: second", "child: second"}));
    EXPECT_EQ(log.back(), "parent: second");
    EXPECT_TRUE(system.IsAwake());
}

TEST_F(MessageTest, APostedKeyIsShownToTheWindowThenToThoseAboveBeforeItIsHandled) {
    child.SendMessage(WM_CHAR, 'a', 1);
    EXPECT_THAT(log, ElementsAre("child: char 97 x1")) << "one that is sent isn't";
    log.clear();
    parent.takesKeys = true;
    child.PostMessage(WM_CHAR, 'a', MAKELPARAM(2, 0));
    child.PostMessage(WM_KEYDOWN, VK_RETURN);
    PumpMessages();

    EXPECT_THAT(log,
                ElementsAre("child: translate 258", "parent: translate 258", "child: char 97 x2",
                            "child: translate 256", "parent: translate 256"));
}

TEST_F(MessageTest, AKeyThatIsTakenAwayBringsNoCharacter) {
    child.SetFocus();
    parent.takesKeys = true;
    log.clear();

    system.PressKey(VK_RETURN);

    EXPECT_THAT(log, testing::Not(testing::Contains(testing::HasSubstr("char"))));
}

TEST_F(MessageTest, ADestroyedWindowGetsNothingMoreAlsoNotWhatWasPosted) {
    const HWND handle = child.GetSafeHwnd();
    child.PostMessage(kFirst);

    EXPECT_TRUE(parent.DestroyWindow());
    EXPECT_THAT(log, ElementsAre("parent: destroy", "child: destroy"));
    log.clear();

    EXPECT_EQ(PumpMessages(), 0);
    EXPECT_EQ(SendMessage(handle, kFirst), 0);
    EXPECT_FALSE(PostMessage(handle, kFirst));
    EXPECT_EQ(CWnd::FromHandle(handle), nullptr);
    EXPECT_FALSE(child.DestroyWindow());
    EXPECT_THAT(log, IsEmpty());
    child.Create(WS_CHILD, {}, &parent, 5);
    EXPECT_NE(child.GetSafeHwnd(), handle) << "none is given twice";
}

TEST_F(MessageTest, CommandsGoByTheirRange) {
    for (const UINT id : {kFirstCommand - 1, kFirstCommand, kLastCommand, kLastCommand + 1, 9U}) {
        parent.SendMessage(WM_COMMAND, id);
    }
    EXPECT_THAT(log, ElementsAre("parent: command 1574", "parent: command 1591", "parent: nine"));
}

TEST_F(MessageTest, TheOwnerIsTheParentUnlessAnotherOneIsSetAndLives) {
    EXPECT_EQ(child.GetOwner(), &parent);
    Window owner("owner", log);
    owner.Create(WS_POPUP, {}, nullptr, 0);

    child.SetOwner(&owner);
    EXPECT_EQ(child.GetOwner(), &owner);
    owner.DestroyWindow();

    EXPECT_EQ(child.GetOwner(), &parent);
}

TEST_F(MessageTest, FocusIsLostBeforeItIsGotAndGoesWithItsWindow) {
    parent.SetFocus();
    EXPECT_EQ(child.SetFocus(), &parent);
    EXPECT_THAT(log, ElementsAre("parent: focus", "parent: lost", "child: focus"));

    child.DestroyWindow();
    EXPECT_EQ(CWnd::GetFocus(), nullptr);
}

TEST_F(MessageTest, ClientPointsOfAChildAreOnTheScreenWhereItStands) {
    CPoint point{3, 4};
    child.ClientToScreen(&point);
    EXPECT_EQ(point, (CPoint{14, 26}));
    child.ScreenToClient(&point);
    EXPECT_EQ(point, (CPoint{3, 4}));
}

TEST_F(MessageTest, TextGoesInAndOutByMessages) {
    char buffer[4];
    parent.SetWindowText("abcdef");
    EXPECT_EQ(parent.SendMessage(WM_GETTEXTLENGTH), 6);
    EXPECT_EQ(parent.SendMessage(WM_GETTEXT, sizeof buffer, LParamOf(&buffer[0])), 3);
    EXPECT_STREQ(buffer, "abc");
}

TEST_F(MessageTest, ANotificationIsReflectedToItsControlBeforeTheParentHandlesIt) {
    child.DestroyWindow();
    NotingList list;
    list.Create(LVS_REPORT, {0, 0, 100, 100}, &parent, 5);
    CListCtrl plain;
    plain.Create(LVS_REPORT, {0, 0, 100, 100}, &parent, 5);
    log.clear();

    NMITEMACTIVATE own;
    own.hdr = {list.GetSafeHwnd(), 5, NM_CLICK};
    EXPECT_EQ(parent.SendMessage(WM_NOTIFY, 5, LParamOf(&own)), 1);
    EXPECT_EQ(list.clicks.size(), 1U);
    EXPECT_THAT(log, IsEmpty());

    NMHDR other{plain.GetSafeHwnd(), 5, NM_CLICK};
    EXPECT_EQ(parent.SendMessage(WM_NOTIFY, 5, LParamOf(&other)), 3);
    EXPECT_THAT(log, ElementsAre("parent: click of a child"));
}

TEST_F(MessageTest, AListMayBeDestroyedByAHandlerThatItsOwnPeerHasCalled) {
    NotingList list;
    list.Create(LVS_REPORT, {0, 0, 100, 100}, &parent, 5);
    list.InsertColumn(0, "a", LVCFMT_LEFT, 90);
    list.InsertItem(0, "x");
    list.goesOnChange = true;

    system.Click(list, {10, 25});

    EXPECT_EQ(list.GetSafeHwnd(), nullptr);
    EXPECT_EQ(list.GetItemCount(), 0);
}

TEST_F(MessageTest, AMenuWithoutReturnPostsTheCommandToItsOwner) {
    auto submenu = std::make_unique<CMenu>();
    submenu->CreatePopupMenu();
    submenu->AppendMenu(MF_STRING, 9, "Nine");
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(std::move(submenu), "More");

    system.ChooseCommand(9);
    EXPECT_TRUE(menu.TrackPopupMenu(0, 0, 0, &parent));
    EXPECT_THAT(log, IsEmpty());
    EXPECT_EQ(PumpMessages(), 1);

    EXPECT_EQ(log.back(), "parent: nine");
}

TEST_F(MessageTest, AWindowThatSaysNothingShowsTheArrowUnderThePointer) {
    SetCursor(LoadStandardCursor(IDC_HAND));

    system.MovePointer(parent, {5, 6});

    EXPECT_EQ(GetCursor(), LoadStandardCursor(IDC_ARROW));
    CPoint pointer;
    GetCursorPos(&pointer);
    EXPECT_EQ(pointer, (CPoint{15, 26}));
}

TEST_F(MessageTest, WhatIsDrawnOnAWindowStandsThereAtOnceInTheColoursThatAreSet) {
    CClientDC dc(&parent);
    dc.SetBkMode(TRANSPARENT);
    dc.SetPenColor(RGB(1, 2, 3));
    dc.TextOut(4, 5, "ab");
    dc.MoveTo(1, 1);
    dc.LineTo(9, 1);
    dc.LineTo(9, 8);

    const Recording& drawn = dynamic_cast<MemoryWindowPeer&>(*parent.GetPeer()).Drawn();
    ASSERT_EQ(drawn.size(), 3U);
    EXPECT_EQ(drawn[0].rect, (CRect{4, 5, 20, 21}));
    EXPECT_EQ(drawn[1].colour, RGB(1, 2, 3));
    EXPECT_EQ(drawn[2].rect, (CRect{9, 1, 9, 8}));
}

}  // namespace
}  // namespace orvo
