// Menus, message boxes and the choice of a day on the screen, answered by keys.
// SPDX-License-Identifier: MIT
#include <QCalendarWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>

#include <platform/qt/QtFixture.h>
#include <platform/window/dialogs/CMenu.h>

namespace orvo {

namespace {

class QtDialogTest : public QtWindowFixture {
protected:
    static void PressIn(QWidget* widget, std::initializer_list<Qt::Key> keys) {
        ASSERT_NE(widget, nullptr);
        for (const Qt::Key key : keys) QTest::keyClick(widget, key);
    }
};

TEST_F(QtDialogTest, AMenuGivesTheCommandThatIsChosenByKey) {
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING | MF_GRAYED, 10, "Gray");
    menu.AppendMenu(MF_STRING | MF_CHECKED, 11, "&Business");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING, 12, "Private");
    constexpr UINT kReturns = TPM_CENTERALIGN | TPM_RETURNCMD;

    Then([] {
        PressIn(QApplication::activePopupWidget(), {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    });
    EXPECT_EQ(menu.TrackPopupMenu(kReturns, 200, 100, &parent), 12);

    bool isChecked = false;
    QPoint corner;
    Then([&] {
        auto* shown = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(shown, nullptr);
        isChecked = shown->actions()[1]->isChecked();
        corner = shown->pos() + QPoint(shown->width() / 2, 0);
        PressIn(shown, {Qt::Key_Escape});
    });
    EXPECT_EQ(menu.TrackPopupMenu(kReturns, 200, 100, &parent), 0);
    EXPECT_TRUE(isChecked);
    EXPECT_NEAR(corner.x(), 200, 1);
}

TEST_F(QtDialogTest, AMenuMayOutliveItsOwner) {
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, 12, "Private");

    Then([this] {
        parent.DestroyWindow();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (QWidget* shown = QApplication::activePopupWidget()) shown->close();
    });

    EXPECT_EQ(menu.TrackPopupMenu(TPM_RETURNCMD, 200, 100, &parent), 0);
}

TEST_F(QtDialogTest, ABoxGivesTheAnswerOfItsButtons) {
    struct Row {
        const char* why;
        UINT type;
        QMessageBox::StandardButton button;
        int want;
    };
    const Row rows[] = {
        {"yes", MB_YESNO | MB_ICONQUESTION, QMessageBox::Yes, IDYES},
        {"no", MB_YESNOCANCEL, QMessageBox::No, IDNO},
        {"cancel", MB_YESNOCANCEL, QMessageBox::Cancel, IDCANCEL},
        {"ok", MB_OK, QMessageBox::Ok, IDOK},
    };
    for (const Row& row : rows) {
        Then([&row] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr) << row.why;
            EXPECT_EQ(box->text(), "<b>Sure?") << row.why;
            PressIn(box->button(row.button), {Qt::Key_Space});
        });
        EXPECT_EQ(parent.MessageBox("<b>Sure?", row.type), row.want) << row.why;
    }
    Then([] { PressIn(QApplication::activeModalWidget(), {Qt::Key_Escape}); });
    EXPECT_EQ(parent.MessageBox("Sure?", MB_OKCANCEL), IDCANCEL);
}

TEST_F(QtDialogTest, ADayIsChosenOrLeftAlone) {
    const CTime first(2024, 2, 28, 13, 0, 0);
    CTime day = first;

    Then([] { PressIn(QApplication::activeModalWidget(), {Qt::Key_Escape}); });
    EXPECT_FALSE(system.PickDay(&parent, day));
    EXPECT_EQ(day, first);

    Then([] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        auto* calendar = dialog->findChild<QCalendarWidget*>();
        EXPECT_EQ(calendar->selectedDate(), QDate(2024, 2, 28));
        calendar->setSelectedDate({2024, 2, 29});
        dialog->accept();
    });
    EXPECT_TRUE(system.PickDay(&parent, day));
    EXPECT_EQ(day, CTime(2024, 2, 29, 0, 0, 0));
}

}  // namespace

}  // namespace orvo
