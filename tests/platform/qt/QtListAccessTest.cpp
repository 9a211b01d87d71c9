// What assistive technology is told of a list: its parts, their places and states.
// SPDX-License-Identifier: MIT
#include <QAccessible>
#include <QApplication>
#include <QListView>
#include <QTreeView>

#include <platform/qt/QtFixture.h>
#include <platform/window/NotingList.h>

namespace orvo {

namespace {

struct QtListAccess : QtWindowFixture {
    void SetUp() override {
        QtWindowFixture::SetUp();
        list.Create(LVS_REPORT, {0, 0, 400, 200}, &parent, 1);
        list.InsertColumn(0, "Name", LVCFMT_LEFT, 100);
        list.InsertColumn(1, "City", LVCFMT_LEFT, 80);
        for (const char* name : {"Lee", "Ito", ""}) list.InsertItem(list.GetItemCount(), name);
        list.SetItemText(0, 1, "Boston");
        list.SetItemText(1, 1, "Tokyo");
        QtWindowSystem::NameList(list, "People", "Private");
        list.SetFocus();
    }

    void TearDown() override { QApplication::setLayoutDirection(Qt::LeftToRight); }

    QAccessibleInterface& Access() const {
        return *QAccessible::queryAccessibleInterface(Widget(list).findChild<QTreeView*>());
    }

    static QStringList Names(const QAccessibleInterface& of) {
        QStringList names;
        for (int at = 0; at < of.childCount(); ++at) names += of.child(at)->text(QAccessible::Name);
        return names;
    }

    NotingList list;
};

TEST_F(QtListAccess, HeadingsComeBeforeRowsAndCellsAreInsideOfRows) {
    EXPECT_EQ(Access().text(QAccessible::Name), "People");
    EXPECT_THAT(Names(Access()),
                ElementsAre("Name", "City", "Lee, Boston", "Ito, Tokyo", "Private"));
    const QAccessibleInterface& row = *Access().child(3);
    EXPECT_THAT(Names(row), ElementsAre("Ito", "Tokyo"));
    EXPECT_EQ(Access().indexOfChild(&row), 3);
    EXPECT_EQ(row.child(1)->parent(), &row);
    EXPECT_EQ(row.role(), QAccessible::Row);
}

TEST_F(QtListAccess, APartIsFoundWhereItIsSeen) {
    constexpr int kOrder[] = {1, 0};
    list.SetColumnOrderArray(2, kOrder);
    QAccessibleInterface& row = *Access().child(2);
    EXPECT_THAT(Names(row), ElementsAre("Boston", "Lee"));
    for (int place = 0; place < 2; ++place) {
        const QRect cell = row.child(place)->rect();
        EXPECT_EQ(Access().childAt(cell.center().x(), cell.center().y()), &row);
        EXPECT_EQ(row.childAt(cell.center().x(), cell.center().y()), row.child(place));
        EXPECT_EQ(Access().child(place)->rect().left(), cell.left());
    }
}

TEST_F(QtListAccess, TheRowThatTheUserHasBeforeHimIsKnown) {
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);

    EXPECT_EQ(Access().focusChild(), Access().child(3));
    for (int row = 0; row < 3; ++row) {
        const QAccessible::State state = Access().child(2 + row)->state();
        EXPECT_EQ(state.selected + state.focused, row == 1 ? 2 : 0);
    }
}

TEST_F(QtListAccess, RowsThatAreNoMoreAreNotTold) {
    const QAccessible::Id last = QAccessible::uniqueId(Access().child(4));
    EXPECT_TRUE(QAccessible::accessibleInterface(last)->isValid());

    list.DeleteItem(0);

    const QAccessibleInterface* gone = QAccessible::accessibleInterface(last);
    EXPECT_FALSE(gone && gone->isValid());
    EXPECT_THAT(Names(Access()), ElementsAre("Name", "City", "Ito, Tokyo", "Private"));
    EXPECT_EQ(Access().child(4), nullptr);
}

TEST_F(QtListAccess, OfTwoViewsOnlyTheOneThatIsShownHasRows) {
    list.SetView(LVS_ICON);
    QAccessibleInterface& icons =
        *QAccessible::queryAccessibleInterface(Widget(list).findChild<QListView*>());

    EXPECT_EQ(Access().childCount(), 0);
    EXPECT_THAT(Names(icons), ElementsAre("Lee", "Ito", "Private"));
    EXPECT_EQ(icons.child(1)->childCount(), 0);
}

TEST_F(QtListAccess, InARightToLeftProgramAClickReachesTheCellThatIsSeenThere) {
    QApplication::setLayoutDirection(Qt::RightToLeft);
    QCoreApplication::processEvents();
    QAccessibleInterface& row = *Access().child(3);
    for (int column = 0; column < 2; ++column) {
        const QRect cell = row.child(column)->rect();
        EXPECT_EQ(Access().child(column)->rect().left(), cell.left()) << "below its heading";
        const CPoint point = FromQt(Widget(list).mapFromGlobal(cell.center()));
        Click(list, point);
        EXPECT_EQ(list.clicks.back().column, column);
        EXPECT_THAT(list.Selected(), ElementsAre(1));
    }
}

}  // namespace

}  // namespace orvo
