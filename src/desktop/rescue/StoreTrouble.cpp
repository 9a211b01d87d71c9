// What the user can do where a store can't be opened, or was taken away while it was open.
// SPDX-License-Identifier: MIT
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

#include <desktop/rescue/RescueOffer.h>
#include <desktop/rescue/StoreTrouble.h>
#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>
#include <host/AutomaticBackup.h>
#include <libraries/quire/StoreBackup.h>
#include <libraries/quire/StoreRescue.h>

namespace orvo::desktop {
namespace {

std::optional<std::string> ChooseStore(const std::string& store) {
    const QString chosen = QFileDialog::getOpenFileName(
        nullptr, Text("Open another store"), QFileInfo(FromUtf8(store)).absolutePath(),
        Text("Stores") + " (*.db);;" + Text("All files") + " (*)");
    if (chosen.isEmpty()) return std::nullopt;
    return chosen.toStdString();
}

std::optional<std::string> RestoreBackup(const std::string& store, const std::string& backup) {
    RestoreReport report;
    std::string error;
    const bool isDone = RestoreStore(store, backup, report, error);
    QMessageBox::information(
        nullptr, Text("Damaged store"),
        isDone ? Text("The damaged store is kept as %1.").arg(FromUtf8(report.kept))
               : Text("Nothing was restored.") + "\n\n" + ProblemText(error));
    return isDone ? std::optional(store) : std::nullopt;
}

}  // namespace

// A choice that leads nowhere comes back to the question.
std::optional<std::string> AskForStore(const std::string& store, StoreFault fault) {
    const bool isDamaged = fault == StoreFault::Damaged || IsDamagedStore(store);
    if (isDamaged) fault = StoreFault::Damaged;
    const std::string backup = isDamaged ? NewestGoodBackup(store) : std::string();
    while (true) {
        QMessageBox question(QMessageBox::Warning, Text("Store can't be opened"),
                             Text("The store can't be opened: %1.").arg(Text(FaultText(fault))));
        question.setTextFormat(Qt::PlainText);
        question.setInformativeText(FromUtf8(store));
        const QPushButton* again = question.addButton(Text("&Try again"), QMessageBox::AcceptRole);
        const QPushButton* another =
            question.addButton(Text("Another &store..."), QMessageBox::ActionRole);
        const QPushButton* rescue =
            isDamaged
                ? question.addButton(Text("Rescue into a new store..."), QMessageBox::ActionRole)
                : nullptr;
        const QPushButton* restore =
            backup.empty() ? nullptr
                           : question.addButton(RestoreText(backup), QMessageBox::ActionRole);
        question.setEscapeButton(question.addButton(Text("&Quit"), QMessageBox::RejectRole));
        question.exec();
        const QAbstractButton* clicked = question.clickedButton();
        if (clicked == again) return store;
        std::optional<std::string> next;
        if (clicked == another) {
            next = ChooseStore(store);
        } else if (rescue && clicked == rescue) {
            next = RescueIntoNew(nullptr, store);
        } else if (restore && clicked == restore) {
            next = RestoreBackup(store, backup);
        } else {
            return std::nullopt;
        }
        if (next) return next;
    }
}

bool AskToReopen(QWidget* parent, const std::string& store) {
    QMessageBox question(QMessageBox::Warning, Text("Store is gone"),
                         Text("Another program has removed or replaced this store while it was "
                              "open. What is shown can't be changed any more."),
                         QMessageBox::NoButton, parent);
    question.setTextFormat(Qt::PlainText);
    question.setInformativeText(FromUtf8(store));
    QPushButton* reopen = question.addButton(Text("&Open it again"), QMessageBox::AcceptRole);
    question.setDefaultButton(reopen);
    question.addButton(Text("Not now"), QMessageBox::RejectRole);
    question.exec();
    return question.clickedButton() == reopen;
}

}  // namespace orvo::desktop
