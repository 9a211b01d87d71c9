// Offering to copy what can still be read of a damaged store into a new one.
// SPDX-License-Identifier: MIT
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <algorithm>

#include <desktop/backup/RestoreDialog.h>
#include <desktop/rescue/RescueOffer.h>
#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>
#include <host/AutomaticBackup.h>
#include <libraries/quire/StoreRescue.h>

namespace orvo::desktop {
namespace {

// A message shows no more lines than these.
constexpr std::size_t kMostToldLines = 12;

QString Title() {
    return Text("Damaged store");
}

QString Lines(const std::vector<std::string>& lines) {
    const std::size_t told = std::min(lines.size(), kMostToldLines);
    QString text;
    for (std::size_t i = 0; i < told; ++i) text += '\n' + FromUtf8(lines[i]);
    if (told == lines.size()) return text;
    const auto rest = static_cast<std::int64_t>(lines.size() - told);
    return text + '\n' + CountText("and %1 more", "and %1 more", rest);
}

enum class Way { None, Rescue, Restore };

Way AskForWay(QWidget* parent, const std::vector<std::string>& damage, const std::string& backup) {
    QMessageBox question(QMessageBox::Warning, Title(),
                         Text("Parts of this store can't be read any more.") + '\n' + Lines(damage),
                         QMessageBox::NoButton, parent);
    question.setInformativeText(
        Text("What can still be read can be copied into a new store. This one stays as it is."));
    QPushButton* rescue =
        question.addButton(Text("Rescue into a new store..."), QMessageBox::AcceptRole);
    const QPushButton* restore =
        backup.empty() ? nullptr : question.addButton(RestoreText(backup), QMessageBox::ActionRole);
    question.setDefaultButton(rescue);
    question.addButton(Text("Not now"), QMessageBox::RejectRole);
    question.exec();
    if (question.clickedButton() == rescue) return Way::Rescue;
    return restore && question.clickedButton() == restore ? Way::Restore : Way::None;
}

QString ChooseNewStore(QWidget* parent, const std::string& store) {
    const QFileInfo old(FromUtf8(store));
    const QString proposed =
        old.absolutePath() + '/' + old.completeBaseName() + '-' + Text("rescued") + ".db";
    // What is there already is never replaced.
    return QFileDialog::getSaveFileName(parent, Text("Rescue into a new store"), proposed,
                                        Text("Stores") + " (*.db)", nullptr,
                                        QFileDialog::DontConfirmOverwrite);
}

}  // namespace

void OfferRescue(QWidget* parent, const std::string& store, const std::vector<std::string>& damage,
                 const BackupRestorer& restore) {
    const std::string backup = NewestGoodBackup(store);
    const Way way = AskForWay(parent, damage, backup);
    if (way == Way::Rescue) RescueIntoNew(parent, store);
    if (way == Way::Restore) restore(backup);
}

QString RestoreText(const std::string& backup) {
    return Text("Restore the backup of %1").arg(BackupTime(backup));
}

std::optional<std::string> RescueIntoNew(QWidget* parent, const std::string& store) {
    const QString fresh = ChooseNewStore(parent, store);
    if (fresh.isEmpty()) return std::nullopt;
    RescueReport report;
    std::string error;
    if (!RescueStore(store, fresh.toStdString(), report, error)) {
        PrintProblem(error);
        QMessageBox::warning(parent, Title(),
                             Text("Nothing was rescued.") + "\n\n" + ProblemText(error));
        return std::nullopt;
    }
    QString told = Text("The new store %1 holds %2 and %3.")
                       .arg(fresh, CountText("%1 address", "%1 addresses", report.addresses),
                            CountText("%1 to-do", "%1 to-dos", report.toDos));
    if (!report.lost.empty()) {
        told += "\n\n" + Text("This couldn't be read:") + Lines(report.lost);
    }
    told += "\n\n" + Text("It is opened by: %1").arg("orvo-desktop --store " + fresh);
    QMessageBox::information(parent, Title(), told);
    return fresh.toStdString();
}

void OfferRescueLater(QWidget& parent, const std::string& store,
                      const std::vector<std::string>& damage, const BackupRestorer& restore) {
    auto* later = new QTimer(&parent);  // Qt's
    later->setSingleShot(true);
    QObject::connect(later, &QTimer::timeout, &parent, [&parent, later, store, damage, restore] {
        later->deleteLater();
        OfferRescue(&parent, store, damage, restore);
    });
    later->start();
}

}  // namespace orvo::desktop
