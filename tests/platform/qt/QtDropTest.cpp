// Files that the user drags over a window of the screen reach its drop target.
// SPDX-License-Identifier: MIT
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>
#include <QWindow>

#include <platform/desktop/NotingTarget.h>
#include <platform/qt/QtFixture.h>
#include <support/CodePages.h>

namespace orvo {
namespace {

struct QtDropTest : QtWindowFixture {
    void SetUp() override {
        QtWindowFixture::SetUp();
        target.Register(&parent);
    }

    // What the source of the drag is told.
    template <class Event>
    Qt::DropAction Tell(QPoint at) {
        Event event(at, allowed, &mime, Qt::LeftButton, Qt::ControlModifier);
        QCoreApplication::sendEvent(Widget(parent).windowHandle(), &event);
        EXPECT_FALSE(event.isAccepted() && event.dropAction() == Qt::IgnoreAction);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    Qt::DropAction Enter(QPoint at = {10, 10}) { return Tell<QDragEnterEvent>(at); }
    Qt::DropAction Move(QPoint at = {10, 10}) { return Tell<QDragMoveEvent>(at); }
    Qt::DropAction Drop(QPoint at = {10, 10}) { return Tell<QDropEvent>(at); }
    void Leave() {
        QDragLeaveEvent event;
        QCoreApplication::sendEvent(Widget(parent).windowHandle(), &event);
    }
    void DragCard() { mime.setUrls({QUrl("file:///x/a.vcf")}); }

    NotingTarget target;
    QMimeData mime;
    Qt::DropActions allowed = Qt::CopyAction | Qt::MoveAction;
};

TEST_F(QtDropTest, FilesGoThroughTheTarget) {
    mime.setUrls(
        {QUrl("file:///x/a%20b.vcf"), QUrl("https://example.org/c.vcf"), QUrl("file:///x/d.vcs")});

    EXPECT_EQ(Enter({20, 30}), Qt::CopyAction);
    EXPECT_EQ(target.point, (CPoint{20, 30}));
    EXPECT_EQ(target.keyState, MK_LBUTTON | MK_CONTROL);
    EXPECT_EQ(Move({40, 30}), Qt::CopyAction);
    EXPECT_EQ(target.point, (CPoint{40, 30}));
    EXPECT_EQ(Drop({40, 30}), Qt::CopyAction);
    EXPECT_THAT(target.files, ElementsAre(CString("/x/a b.vcf"), CString("/x/d.vcs")));
    EXPECT_EQ(target.calls.back(), "drop");
}

TEST_F(QtDropTest, WhatIsNotWantedOrNotAllowedIsRefused) {
    DragCard();
    target.over = DROPEFFECT_NONE;
    EXPECT_EQ(Enter(), Qt::IgnoreAction);
    EXPECT_EQ(Move(), Qt::IgnoreAction);
    EXPECT_EQ(Drop(), Qt::IgnoreAction);
    target.over = DROPEFFECT_LINK;
    EXPECT_EQ(Enter(), Qt::IgnoreAction);
    allowed |= Qt::LinkAction;
    EXPECT_EQ(Enter(), Qt::LinkAction);
}

TEST_F(QtDropTest, TheTargetIsToldOfADragUntilItLeavesOrTheTargetIsNoMore) {
    DragCard();
    Enter();
    Leave();
    EXPECT_THAT(target.calls, ElementsAre("enter", "leave"));
    target.Revoke();
    EXPECT_EQ(Enter(), Qt::IgnoreAction);
    EXPECT_EQ(target.calls.size(), 2U);
}

TEST_F(QtDropTest, OtherDataIsntTheTargets) {
    mime.setText("a text");
    EXPECT_EQ(Enter(), Qt::IgnoreAction);
    mime.setUrls({QUrl("https://example.org/c.vcf")});
    EXPECT_EQ(Enter(), Qt::IgnoreAction);
    EXPECT_THAT(target.calls, IsEmpty());
}

TEST_F(QtDropTest, AnEditInsideLeavesTheFilesToTheTargetAndKeepsTexts) {
    QLineEdit edit(&Widget(parent));
    edit.setGeometry(100, 100, 100, 30);
    edit.show();
    const QPoint inside(120, 110);
    DragCard();
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
    DragCard();

    EXPECT_EQ(Enter({210, 120}), Qt::CopyAction);
    EXPECT_EQ(own.point, (CPoint{10, 20}));
    EXPECT_THAT(target.calls, IsEmpty());
}

TEST_F(QtDropTest, TheHostMayTakeTheWindowAwayAtADrop) {
    DragCard();
    target.whenDropped = [this] {
        target.Revoke();
        parent.DestroyWindow();
    };
    Enter();
    EXPECT_EQ(Drop(), Qt::CopyAction);
    EXPECT_EQ(target.calls.back(), "drop");
}

TEST_F(QtDropTest, PathsAreInTheCodePageOfTheSystem) {
    mime.setUrls({QUrl::fromLocalFile(QString::fromUtf8("/x/\xE8\xA1\xA8.vcf"))});
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
