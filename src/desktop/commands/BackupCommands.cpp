// Backing the store up into a file, and restoring it from one.
// SPDX-License-Identifier: MIT
#include <QMessageBox>

#include <desktop/backup/BackgroundWork.h>
#include <desktop/backup/RestoreDialog.h>
#include <desktop/commands/BackupCommands.h>
#include <desktop/commands/SaveStart.h>
#include <desktop/options/DesktopPreferences.h>
#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>
#include <libraries/quire/StoreBackup.h>

namespace orvo::desktop {
namespace {

QString ContentOf(const StoreCounts& counts) {
    return CountText("%1 address", "%1 addresses", counts.addresses) + ", " +
           CountText("%1 to-do", "%1 to-dos", counts.toDos);
}

}  // namespace

void BackupCommands::PutInto(QMenu& menu) {
    QObject::connect(menu.addAction(Text("Bac&k up...")), &QAction::triggered, &menu,
                     [this] { BackUp(); });
    QObject::connect(menu.addAction(Text("&Restore...")), &QAction::triggered, &menu,
                     [this] { Restore(); });
    menu.addSeparator();
}

void BackupCommands::BackUp() {
    QMainWindow& window = m_context.Window();
    const std::string store = m_context.Session().Path();
    const std::optional<std::string> file = ChooseBackupFile(&window, store, LastFolder());
    if (!file) return;
    KeepFolderOf(*file);
    StoreCounts counts;
    std::string error;
    bool isDone = false;
    // The dialog has asked before it gave the name of a file that is there.
    RunInBackground(&window, Text("Backing up"),
                    [&] { isDone = BackUpStore(store, *file, true, counts, error); });
    if (!isDone) {
        m_context.Refuse(Text("Nothing was backed up.") + "\n\n" + ProblemText(error));
        return;
    }
    m_context.Say(Text("Backed up: %1.").arg(ContentOf(counts)));
}

void BackupCommands::Restore() {
    const std::optional<std::string> backup =
        ChooseBackup(&m_context.Window(), m_context.Session().Path(), LastFolder());
    if (backup) RestoreFrom(*backup);
}

void BackupCommands::RestoreFrom(const std::string& backup) {
    StoreSession& session = m_context.Session();
    RestoreReport report;
    std::string error;
    bool isDone = false;
    RunInBackground(&m_context.Window(), Text("Restoring"), [&, store = session.Path()] {
        isDone = RestoreStore(store, backup, report, error);
    });
    if (!isDone) {
        m_context.Refuse(Text("Nothing was restored.") + "\n\n" + ProblemText(error));
        return;
    }
    const QString told = Text("Restored: %1.").arg(ContentOf(report.counts));
    if (report.isNewFile) {
        QMessageBox::information(
            &m_context.Window(), m_context.Window().windowTitle(),
            told + "\n\n" + Text("The damaged store is kept as %1.").arg(FromUtf8(report.kept)));
        m_context.Reopen();
        return;
    }
    if (!report.kept.empty()) {
        session.History().AddRestore(Text("Restore").toStdString(), report.kept);
    }
    session.Addresses().RefreshTexts();
    session.ToDos().RefreshTexts();
    m_context.Refresh();
    m_context.Say(told);
}

}  // namespace orvo::desktop
