// What each view lets out of private entries, and that the user is told what it lacks.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QClipboard>
#include <QMenuBar>
#include <QStatusBar>
#include <QTemporaryDir>
#include <memory>

#include <gtest/gtest.h>

#include <desktop/window/DesktopWindow.h>

namespace orvo::desktop {
namespace {

constexpr ViewKind kViews[] = {ViewKind::List, ViewKind::LargeIcons, ViewKind::SmallIcons,
                               ViewKind::Cards, ViewKind::ToDos};
constexpr WayOut kWaysOfSelected[] = {WayOut::Export, WayOut::Mail, WayOut::Clipboard, WayOut::Drag,
                                      WayOut::Change};
constexpr int kAll = 3;
constexpr int kPrivate = 2;

// A window over one entry that everybody may see, and two private ones, of each kind.
class LeftOut : public testing::Test {
protected:
    LeftOut() {
        std::string error;
        session = StoreSession::Open(folder.filePath("orvo.db").toStdString(), error);
        for (int i = 0; i < kAll; ++i) {
            const int isPrivate = i < kPrivate ? 1 : 0;
            const std::string name = isPrivate != 0 ? "Xanadu" : "Adams";
            CAddressRecord address(session->Addresses());
            CToDoRecord toDo(session->ToDos());
            EXPECT_EQ(address.SetUtf8(AddressField::Name, name), 0);
            EXPECT_EQ(address.SetPrivate(isPrivate), 0);
            EXPECT_EQ(session->Addresses().Add(address), 0);
            EXPECT_EQ(toDo.SetDescriptionUtf8(name), 0);
            EXPECT_EQ(toDo.SetPrivate(isPrivate), 0);
            EXPECT_EQ(session->ToDos().Add(toDo), 0);
        }
        window = std::make_unique<DesktopWindow>(*session, options);
        EXPECT_TRUE(window->Open({}));
        window->show();
    }

    // Chooses the entry of a menu, whose texts may mark a letter.
    void Choose(const QString& text) {
        for (const QAction* top : window->menuBar()->actions()) {
            for (QAction* action : top->menu()->actions()) {
                if (action->text().remove('&') == text) return action->trigger();
            }
        }
        ADD_FAILURE() << text.toStdString();
    }

    QTemporaryDir folder;
    std::unique_ptr<StoreSession> session;
    COrvoDesktopOptions options;
    std::unique_ptr<DesktopWindow> window;
};

TEST_F(LeftOut, EachViewTellsNoMoreThanTheUserWantsAndSaysWhatItLacks) {
    struct {
        const char* choice;
        int rows, whole, hidden;
        const char* said;
    } const choices[] = {
        {"Show private entries", kAll, kAll, 0, ""},
        {"Mask private entries", kAll, kAll - kPrivate, 0, "2 private entries were left out."},
        {"Hide private entries", kAll - kPrivate, kAll - kPrivate, kPrivate, ""}};
    for (const auto& choice : choices) {
        Choose(choice.choice);
        for (const ViewKind view : kViews) {
            SCOPED_TRACE(std::string(choice.choice) + ", view " +
                         std::to_string(static_cast<int>(view)));
            window->ShowView(view);
            window->statusBar()->clearMessage();
            Choose("Select all");
            QCoreApplication::processEvents();
            Choose("Copy");
            ViewFrame& frame = window->Frame();

            EXPECT_EQ(frame.Entries().RowCount(), choice.rows);
            EXPECT_EQ(frame.Entries().HiddenCount(), choice.hidden);
            for (const WayOut way : kWaysOfSelected) {
                EXPECT_EQ(static_cast<int>(frame.Entries().SelectedRecords(way).size()),
                          choice.whole);
            }
            const QString copied = QApplication::clipboard()->text();
            EXPECT_EQ(copied.count("Xanadu"), choice.whole - (kAll - kPrivate));
            EXPECT_TRUE(copied.contains("Adams"));
            EXPECT_EQ(window->statusBar()->currentMessage(), choice.said);
        }
    }
}

}  // namespace
}  // namespace orvo::desktop
