// Edit controls: typing, deleting and selecting whole characters on every code page.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <platform/text/SystemText.h>
#include <platform/window/WindowFixture.h>
#include <platform/window/edit/CEdit.h>
#include <platform/window/memory/MemoryEditPeer.h>
#include <support/CodePages.h>

namespace orvo {

namespace {

struct Form : CWnd {
    const MessageMap& GetMessageMap() const override {
        static const MessageMap map{ThisMap(), {OnControl<EN_CHANGE>(4, &Form::OnChange)}};
        return map;
    }
    void OnChange() { ++changes; }
    int changes = 0;
};

struct EditTest : testing::TestWithParam<LocaleCase> {
    void SetUp() override {
        form.Create(WS_POPUP, {0, 0, 200, 100}, nullptr, 0);
        edit.Create(WS_CHILD, {0, 0, 100, 20}, &form, 4);
        edit.SetFocus();
    }

    std::string Text() const {
        CString text;
        edit.GetWindowText(text);
        return ToUtf8(text);
    }
    EditSelection Selection() const {
        EditSelection selection;
        edit.GetSel(selection.anchor, selection.caret);
        return selection;
    }

    LocaleInForce locale{GetParam().tag, GetParam().codePage};
    const int one = SystemText("表").GetLength();
    SystemInForce system;
    Form form;
    CEdit edit;
};
INSTANTIATE_TEST_SUITE_P(BothPages, EditTest, testing::ValuesIn(kBothCodePages));

TEST_P(EditTest, KeysChangeWholeCharacters) {
    const std::tuple<const char*, std::string_view, std::vector<UINT>, const char*> rows[] = {
        {"characters come in order", "a表あz", {}, "a表あz"},
        {"backspace takes the whole character", "表あ", {VK_BACK}, "表"},
        {"in front of the caret", "表あ", {VK_LEFT, VK_BACK}, "あ"},
        {"and at the start nothing", "表", {VK_HOME, VK_BACK}, "表"},
        {"delete takes the one behind", "表あ", {VK_HOME, VK_DELETE}, "あ"},
        {"and at the end nothing", "表", {VK_DELETE}, "表"},
        {"right goes over a whole character", "表あ", {VK_HOME, VK_RIGHT, VK_DELETE}, "表"},
        {"control characters enter nothing", "a", {VK_RETURN, VK_TAB, VK_ESCAPE}, "a"},
    };
    for (const auto& [why, typed, keys, want] : rows) {
        edit.SetWindowText("");
        system.TypeText(typed);
        for (const UINT key : keys) system.PressKey(key);
        EXPECT_EQ(Text(), want) << why;
    }
}

TEST_P(EditTest, ATypedCharacterReplacesTheSelection) {
    edit.SetWindowText(SystemText("a表あz"));
    const int end = SystemText("a表あ").GetLength();
    edit.SetSel(1, end);

    system.TypeText("é");

    EXPECT_EQ(Text(), "aéz");
    EXPECT_EQ(Selection().caret, 1 + SystemText("é").GetLength());
}

TEST_P(EditTest, ShiftDrawsASelectionThatTheNextArrowLeaves) {
    edit.SetWindowText(SystemText("表あ"));

    system.PressKey(VK_RIGHT, {VK_SHIFT});
    EXPECT_EQ(Selection(), (EditSelection{0, one}));
    system.PressKey(VK_RIGHT);

    EXPECT_EQ(Selection(), (EditSelection{one, one}));
}

TEST_P(EditTest, SelectionMessagesNeverSplitACharacter) {
    edit.SetWindowText(SystemText("表あ"));

    edit.SendMessage(EM_SETSEL, 1, -1);
    EXPECT_EQ(Selection(), (EditSelection{0, 2 * one}));
    edit.SendMessage(EM_SETSEL, static_cast<WPARAM>(one + 1), one + 1);

    DWORD last = 0;
    EXPECT_EQ(edit.SendMessage(EM_GETSEL, 0, LParamOf(&last)), MAKELPARAM(one, one));
    EXPECT_EQ(last, static_cast<DWORD>(one));
}

TEST_P(EditTest, ClearRemovesTheSelectionAndTellsTheParent) {
    edit.SetWindowText(SystemText("表あ"));
    form.changes = 0;

    edit.Clear();
    EXPECT_EQ(form.changes, 0) << "nothing was selected";
    edit.SetSel(0, -1);
    edit.Clear();

    EXPECT_EQ(Text(), "");
    EXPECT_EQ(form.changes, 1);
}

TEST_P(EditTest, ATextAtItsLimitTakesNoMore) {
    edit.LimitText(3);
    system.TypeText("ab表");
    EXPECT_EQ(Text(), "ab");
    EXPECT_EQ(system.Beeps(), 1);
    system.TypeText("c");
    EXPECT_EQ(Text(), "abc");
}

// With the key Ctrl a letter comes as its distance from this one.
constexpr WPARAM kControl = '@';

TEST_P(EditTest, TheClipboardTakesAndGivesWholeText) {
    edit.SetWindowText(SystemText("a表あz"));
    system.SetClipboardText("before");
    edit.Copy();
    edit.Cut();
    EXPECT_EQ(system.ClipboardText(), "before") << "nothing was selected";

    edit.SetSel(1, 1 + one);
    edit.SendMessage(WM_CHAR, 'C' - kControl);
    EXPECT_EQ(system.ClipboardText(), SystemText("表"));
    EXPECT_EQ(Text(), "a表あz");
    form.changes = 0;
    edit.SendMessage(WM_CHAR, 'X' - kControl);
    EXPECT_EQ(Text(), "aあz");
    EXPECT_EQ(form.changes, 1);
    edit.SendMessage(WM_CHAR, 'A' - kControl);
    EXPECT_EQ(Selection(), (EditSelection{0, edit.GetWindowTextLength()}));
    edit.SendMessage(WM_CHAR, 'V' - kControl);
    EXPECT_EQ(Text(), "表");
    EXPECT_EQ(Selection().caret, one);
}

TEST_P(EditTest, APasteTakesTheFirstLineAndWhatFits) {
    constexpr std::tuple<const char*, std::string_view, const char*, int, int> kRows[] = {
        {"to the line feed", "ab\ncd", "<ab>", 9, 0},
        {"to the carriage return", "ab\r\ncd", "<ab>", 9, 0},
        {"an empty line", "\nab", "<>", 9, 0},
        {"no text", "", "<>", 9, 0},
        {"as much as fits", "abcd", "<abc>", 5, 1},
        {"of whole characters", "a表", "<a>", 4, 1},
        {"nothing fits", "a", "<>", 2, 1},
        {"the text is over the limit already", "a", "<>", 1, 1},
    };
    for (const auto& [why, clipboard, want, limit, rings] : kRows) {
        edit.SetWindowText("<>");
        edit.SetSel(1, 1);
        edit.LimitText(limit);
        system.SetClipboardText(SystemText(clipboard));
        const int beeps = system.Beeps();
        edit.SendMessage(WM_PASTE);
        EXPECT_EQ(Text(), want) << why;
        EXPECT_EQ(system.Beeps() - beeps, rings) << why;
    }
}

using DoubleByteEdit = EditTest;
INSTANTIATE_TEST_SUITE_P(Page932, DoubleByteEdit, testing::Values(kBothCodePages[1]));

TEST_P(DoubleByteEdit, ALeadByteWaitsAndIsForgottenWithoutATrailByteThatFits) {
    const std::pair<UINT, const char*> rows[] = {
        {0x95, ""}, {0x5C, "表"}, {0x95, "表"}, {'1', "表1"}};
    for (const auto& [byte, want] : rows) {
        edit.SendMessage(WM_CHAR, byte);
        EXPECT_EQ(Text(), want);
    }
}

}  // namespace

}  // namespace orvo
