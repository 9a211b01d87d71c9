// The user's hands in a file dialog on the screen.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QSettings>

#include <platform/io/TempFolder.h>
#include <platform/qt/QtFixture.h>

namespace orvo {

struct FileDialogOnScreen : QtWindowFixture {
    // Qt's dialog remembers its last place; not in the user's own settings.
    FileDialogOnScreen() {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                           QString::fromStdString(folder.Path("settings")));
    }

    // Runs with the file dialog that is shown next, and cancels it where it is still there.
    static void Use(const std::function<void(QFileDialog&)>& act) {
        Then([act] {
            const QPointer<QFileDialog> dialog =
                qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            act(*dialog);
            if (dialog && dialog->isVisible()) dialog->reject();
        });
    }

    static QLineEdit& Name(const QFileDialog& dialog) {
        return *dialog.findChild<QLineEdit*>("fileNameEdit");
    }
    static QAbstractButton& Accept(const QFileDialog& dialog) {
        auto* box = dialog.findChild<QDialogButtonBox*>("buttonBox");
        return *box->buttons().front();
    }
    static QString Label(const QFileDialog& dialog, const char* name) {
        return dialog.findChild<QLabel*>(name)->text();
    }

    // Answers the message box that is shown next, by that button where it has one; counts it.
    static void Answer(QMessageBox::StandardButton button, int& asked) {
        Then([button, &asked] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box) return;
            ++asked;
            if (box->button(button)) QTest::keyClick(box->button(button), Qt::Key_Space);
            box->reject();
        });
    }

    TempFolder folder;
};

}  // namespace orvo
