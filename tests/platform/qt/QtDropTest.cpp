// Files that the user drags over a window of the screen reach its drop target.
// SPDX-License-Identifier: MIT
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>
#include <QWindow>
#include <functional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <platform/desktop/DropTarget.h>
#include <platform/qt/QtFixture.h>
#include <support/CodePages.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Takes what it is told to take, and notes what it is asked.
struct NotingTarget : COleDropTarget {
    DROPEFFECT answer = DROPEFFECT_COPY;
    std::vector<std::string> calls;
    DropList files;
    CPoint point;
    DWORD keyState = 0;
    std::function<void()> whenDropped;

    DROPEFFECT OnDragEnter(CWnd* window, COleDataObject* data, DWORD keys, CPoint at) override {
        calls.push_back("enter");
        EXPECT_NE(window, nullptr);
        files = *data->GetGlobalData(CF_HDROP);
        keyState = keys;
        point = at;
        return answer;
    }
    DROPEFFECT OnDragOver(CWnd*, COleDataObject*, DWORD, CPoint at) override {
        calls.push_back("over");
        point = at;
        return answer;
    }
    BOOL OnDrop(CWnd*, COleDataObject* data, DROPEFFECT, CPoint) override {
        calls.push_back("drop");
        files = *data->GetGlobalData(CF_HDROP);
        if (whenDropped) whenDropped();
        return 1;
    }
    void OnDragLeave(CWnd*) override { calls.push_back("leave"); }
};

struct QtDropTest : QtWindowFixture {
    void SetUp() override {
        QtWindowFixture::SetUp();
        screenWindow = Widget(parent).windowHandle();
        target.Register(&parent);
    }

    // Each gives what the source of the drag is told.
    Qt::DropAction Enter(QPoint at = {10, 10}) {
        QDragEnterEvent event(at, allowed, &mime, Qt::LeftButton, Qt::ControlModifier);
        return Tell(event);
    }
    Qt::DropAction Move(QPoint at = {10, 10}) {
        QDragMoveEvent event(at, allowed, &mime, Qt::LeftButton, Qt::NoModifier);
        return Tell(event);
    }
    Qt::DropAction Drop(QPoint at = {10, 10}) {
        QDropEvent event(at, allowed, &mime, Qt::LeftButton, Qt::NoModifier);
        return Tell(event);
    }
    void Leave() {
        QDragLeaveEvent event;
        QCoreApplication::sendEvent(screenWindow, &event);
    }
    Qt::DropAction Tell(QDropEvent& event) {
        QCoreApplication::sendEvent(screenWindow, &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    void DragFiles(const QList<QUrl>& urls) { mime.setUrls(urls); }

    QLineEdit& AddEdit() {
        auto* edit = new QLineEdit(&Widget(parent));
        edit->setGeometry(100, 100, 100, 30);
        edit->show();
        return *edit;
    }

    QWindow* screenWindow = nullptr;
    NotingTarget target;
    QMimeData mime;
    Qt::DropActions allowed = Qt::CopyAction | Qt::MoveAction;
};

TEST_F(QtDropTest, FilesGoThroughTheTarget) {
    DragFiles(
        {QUrl("file:///x/a%20b.vcf"), QUrl("https://example.org/c.vcf"), QUrl("file:///x/d.vcs")});

    EXPECT_EQ(Enter({20, 30}), Qt::CopyAction);
    EXPECT_EQ(target.point, (CPoint{20, 30}));
    EXPECT_EQ(target.keyState, MK_LBUTTON | MK_CONTROL);
    EXPECT_EQ(Move({40, 30}), Qt::CopyAction);
    EXPECT_EQ(target.point, (CPoint{40, 30}));
    target.files.clear();
    EXPECT_EQ(Drop({40, 30}), Qt::CopyAction);

    EXPECT_THAT(target.files, ElementsAre(CString("/x/a b.vcf"), CString("/x/d.vcs")));
    EXPECT_EQ(target.calls.back(), "drop");
}

TEST_F(QtDropTest, WhatIsNotWantedOrNotAllowedIsRefused) {
    DragFiles({QUrl("file:///x/a.vcf")});
    target.answer = DROPEFFECT_NONE;
    EXPECT_EQ(Enter(), Qt::IgnoreAction);
    EXPECT_EQ(Move(), Qt::IgnoreAction);
    EXPECT_EQ(Drop(), Qt::IgnoreAction);
    target.answer = DROPEFFECT_LINK;
    EXPECT_EQ(Enter(), Qt::IgnoreAction);
    allowed |= Qt::LinkAction;
    EXPECT_EQ(Enter(), Qt::LinkAction);
}

TEST_F(QtDropTest, OtherDataIsntTheTargets) {
    mime.setText("a text");
    EXPECT_EQ(Enter(), Qt::IgnoreAction);
    DragFiles({QUrl("https://example.org/c.vcf")});
    EXPECT_EQ(Enter(), Qt::IgnoreAction);
    EXPECT_THAT(target.calls, IsEmpty());
}

TEST_F(QtDropTest, AnEditInsideLeavesTheFilesToTheTargetAndKeepsTexts) {
    const QLineEdit& edit = AddEdit();
    const QPoint inside(120, 110);
    DragFiles({QUrl("file:///x/a.vcf")});
    EXPECT_EQ(Enter(inside), Qt::CopyAction);
    EXPECT_EQ(target.point, FromQt(inside));
    EXPECT_EQ(Move(inside), Qt::CopyAction);
    EXPECT_EQ(Drop(inside), Qt::CopyAction);
    EXPECT_EQ(target.calls.back(), "drop");
    EXPECT_EQ(edit.text(), "");

    target.calls.clear();
    mime.clear();
    mime.setText("a text");
    EXPECT_NE(Enter(inside), Qt::IgnoreAction);
    EXPECT_NE(Drop(inside), Qt::IgnoreAction);
    EXPECT_EQ(edit.text(), "a text");
    EXPECT_THAT(target.calls, IsEmpty());
}

TEST_F(QtDropTest, AWindowInsideWithADropOfItsOwnKeepsItsFiles) {
    CWnd child;
    child.Create(WS_CHILD, {200, 100, 300, 200}, &parent, 1);
    NotingTarget own;
    own.Register(&child);
    DragFiles({QUrl("file:///x/a.vcf")});

    EXPECT_EQ(Enter({210, 120}), Qt::CopyAction);
    EXPECT_EQ(own.point, (CPoint{10, 20}));
    EXPECT_THAT(target.calls, IsEmpty());
}

TEST_F(QtDropTest, TheTargetIsToldWhenTheDragLeaves) {
    DragFiles({QUrl("file:///x/a.vcf")});
    Enter();
    Leave();
    EXPECT_EQ(target.calls.back(), "leave");
}

TEST_F(QtDropTest, WithoutATargetNothingIsTaken) {
    target.Revoke();
    DragFiles({QUrl("file:///x/a.vcf")});
    EXPECT_EQ(Enter(), Qt::IgnoreAction);
    EXPECT_THAT(target.calls, IsEmpty());
}

TEST_F(QtDropTest, TheHostMayTakeTheWindowAwayAtADrop) {
    DragFiles({QUrl("file:///x/a.vcf")});
    target.whenDropped = [this] {
        target.Revoke();
        parent.DestroyWindow();
    };
    Enter();
    EXPECT_EQ(Drop(), Qt::CopyAction);
    EXPECT_EQ(target.calls.back(), "drop");
}

TEST_F(QtDropTest, PathsAreInTheCodePageOfTheSystem) {
    DragFiles({QUrl::fromLocalFile(QString::fromUtf8("/x/\xE8\xA1\xA8.vcf"))});
    for (const LocaleCase& locale : kBothCodePages) {
        const LocaleInForce inForce(locale.tag, locale.codePage);
        Enter();
        Leave();
        const char* const want = locale.codePage == 932 ? "/x/\x95\x5C.vcf" : "/x/\xE8\xA1\xA8.vcf";
        EXPECT_THAT(target.files, ElementsAre(CString(want)));
    }
}

}  // namespace
}  // namespace orvo
