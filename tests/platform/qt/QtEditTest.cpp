// An edit control on the screen: all that the user enters comes as WM_CHAR.
// SPDX-License-Identifier: MIT
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>

#include <platform/qt/QtFixture.h>
#include <platform/window/edit/CEdit.h>
#include <support/CodePages.h>

namespace orvo {

namespace {

// Takes no digit, and tells what came.
struct Edit : CEdit {
    const MessageMap& GetMessageMap() const override {
        static const MessageMap map{
            ThisMap(),
            {On<WM_CHAR>(&Edit::OnCharacter), On<WM_KEYDOWN>(&Edit::OnKey),
             On<WM_KILLFOCUS>(&Edit::OnFocusLost), OnControlReflect<EN_CHANGE>(&Edit::OnChange)}};
        return map;
    }
    CString Text() const {
        CString text;
        GetWindowText(text);
        return text;
    }

    std::vector<UINT> characters;
    std::vector<UINT> keys;
    int changes = 0;
    CWnd* next = nullptr;

    void OnCharacter(UINT character, UINT repeat, UINT flags) {
        characters.push_back(character);
        if (character < '0' || character > '9') OnChar(character, repeat, flags);
    }
    void OnKey(UINT key, UINT repeat, UINT flags) {
        keys.push_back(key);
        OnKeyDown(key, repeat, flags);
    }
    void OnChange() { ++changes; }
    void OnFocusLost(CWnd* window) { next = window; }
};

struct QtEditTest : QtWindowFixture {
    void SetUp() override {
        QtWindowFixture::SetUp();
        edit.Create(WS_BORDER, {10, 10, 200, 34}, &parent, 2);
        edit.SetFocus();
    }

    QLineEdit& Line() const { return dynamic_cast<QLineEdit&>(Widget(edit)); }

    Edit edit;
};

TEST_F(QtEditTest, KeysComeAsMessagesAndTheWindowDecidesOnThem) {
    QTest::keyClicks(&Line(), "a1b ");
    Press(Qt::Key_Left);
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Home, Qt::ShiftModifier);

    EXPECT_EQ(edit.Text(), CString("a "));
    EXPECT_THAT(edit.characters, ElementsAre('a', '1', 'b', ' ', VK_BACK));
    EXPECT_THAT(edit.keys,
                ElementsAre('A', '1', 'B', VK_SPACE, VK_LEFT, VK_BACK, VK_SHIFT, VK_HOME));
    EXPECT_EQ(Line().selectedText(), "a");
    EXPECT_EQ(edit.changes, 4);
}

struct QtEditPages : QtEditTest, testing::WithParamInterface<LocaleCase> {
    const LocaleInForce locale{GetParam().tag, GetParam().codePage};
};
INSTANTIATE_TEST_SUITE_P(BothPages, QtEditPages, testing::ValuesIn(kBothCodePages));

const QString kTyped = QString::fromUtf8("平成é");  // the last isn't in page 932

TEST_P(QtEditPages, WhatAnInputMethodCommitsIsTypedAndComesBackAsItself) {
    QInputMethodEvent event;
    event.setCommitString(kTyped);
    QCoreApplication::sendEvent(&Line(), &event);

    EXPECT_EQ(Line().text(), kTyped);
    EXPECT_EQ(edit.changes, 3);
    EXPECT_EQ(edit.Text(), FromQt(kTyped));
    EXPECT_EQ(edit.SendMessage(EM_GETSEL) & 0xFFFF, edit.Text().GetLength()) << "counted in bytes";
    if (GetACP() == 932) {
        EXPECT_THAT(edit.characters, ElementsAre(0x95, 0xBD, 0x90, 0xAC, testing::_, testing::_));
    } else {
        EXPECT_THAT(edit.characters, ElementsAre(0x5E73, 0x6210, 0xE9));
    }
}

TEST_F(QtEditTest, WhatIsBeingComposedIsNoTextYet) {
    QInputMethodEvent composing("kana", {});
    QCoreApplication::sendEvent(&Line(), &composing);

    EXPECT_TRUE(edit.Text().IsEmpty());
    EXPECT_THAT(edit.characters, ElementsAre());
}

TEST_F(QtEditTest, TheKeysOfTheClipboardChangeTheTextByMessages) {
    QGuiApplication::clipboard()->setText(QString::fromUtf8("東\nmore"));
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Line().text(), QString::fromUtf8("東"));

    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_X, Qt::ControlModifier);

    EXPECT_TRUE(edit.Text().IsEmpty());
    EXPECT_EQ(edit.changes, 2);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QString::fromUtf8("東"));
}

TEST_F(QtEditTest, TheMenusItemsChangeTheTextByMessages) {
    edit.SetWindowText("abc");
    edit.SetSel(0, 2);
    Then([] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (QAction* action : menu->actions()) {
            if (action->text() == "Delete") action->trigger();
        }
        menu->close();
    });

    QContextMenuEvent opens(QContextMenuEvent::Mouse, {5, 5}, Line().mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&Line(), &opens);

    EXPECT_EQ(edit.Text(), CString("c"));
    EXPECT_EQ(edit.changes, 2);
}

TEST_F(QtEditTest, ADropIsTypedWhereItFalls) {
    edit.SetWindowText("ab");
    edit.SetSel(2, 2);
    QMimeData data;
    data.setText("44Z4Y");
    QDragEnterEvent comes({0, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QDropEvent drop({0, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});

    QCoreApplication::sendEvent(&Line(), &comes);
    QCoreApplication::sendEvent(&Line(), &drop);

    EXPECT_EQ(edit.Text(), CString("ZYab"));
    EXPECT_THAT(edit.characters, ElementsAre('4', 'Z', '4', 'Y')) << "not again what it refused";
}

TEST_F(QtEditTest, AClickSetsTheCaretAndTheFocus) {
    parent.SetFocus();
    edit.SetWindowText("abc");

    QTest::mouseClick(&Line(), Qt::LeftButton, {}, {150, 10});

    EXPECT_EQ(CWnd::GetFocus(), &edit);
    EXPECT_EQ(Line().cursorPosition(), 3);
}

TEST_F(QtEditTest, TheTabKeyGoesToTheNextWindow) {
    CEdit next;
    next.Create(0, {10, 60, 200, 84}, &parent, 3);

    Press(Qt::Key_Tab);

    EXPECT_EQ(CWnd::GetFocus(), &next);
    EXPECT_EQ(edit.next, &next) << "the window that had the focus is told";
    EXPECT_THAT(edit.keys, ElementsAre(VK_TAB));
}

}  // namespace

}  // namespace orvo
