// Import into the store of the window, and export from it.
// SPDX-License-Identifier: MIT
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <algorithm>
#include <unordered_set>
#include <utility>

#include <desktop/commands/SaveStart.h>
#include <desktop/import/ImportChooser.h>
#include <desktop/import/ImportProgress.h>
#include <desktop/import/ImportReportDialog.h>
#include <desktop/options/DesktopPreferences.h>
#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>
#include <desktop/views/EntryTexts.h>
#include <desktop/window/DesktopWindow.h>
#include <exchange/files/ExportFile.h>
#include <exchange/files/FilesToImport.h>
#include <orvoshare/integration/ExportFileDialog.h>
#include <platform/qt/QtConvert.h>
#include <platform/text/SystemText.h>

namespace orvo::desktop {
namespace {

// So many entries that were left out are told in a message.
constexpr std::size_t kMostToldEntries = 12;

std::int64_t SizeOf(std::size_t count) {
    return static_cast<std::int64_t>(count);
}

// The rest of a message: the first of the lines, and how many more there are.
QString Lines(const std::vector<std::string>& lines) {
    QString text;
    const std::size_t told = std::min(lines.size(), kMostToldEntries);
    for (std::size_t i = 0; i < told; ++i) text += '\n' + FromUtf8(lines[i]);
    if (told < lines.size()) {
        text += '\n' + CountText("and %1 more", "and %1 more", SizeOf(lines.size() - told));
    }
    return text;
}

}  // namespace

void DesktopWindow::ChooseFileToImport() {
    ImportChooser dialog(&m_frame, LastFolder());
    if (dialog.DoModal() != IDOK || dialog.Chosen().empty()) return;
    const QFileInfo first(FromUtf8(dialog.Chosen().front()));
    SetLastFolder((first.isDir() ? first.filePath() : first.path()).toStdString());
    Import(dialog.Chosen());
}

void DesktopWindow::ImportLater(const std::vector<std::string>& files) {
    m_filesToImport.insert(m_filesToImport.end(), files.begin(), files.end());
    m_importTimer.start(0);
}

void DesktopWindow::Import(const std::vector<std::string>& paths) {
    if (m_isImporting) {
        m_filesToImport.insert(m_filesToImport.end(), paths.begin(), paths.end());
        return;
    }
    m_isImporting = true;
    const FilesToImport found = FindFilesToImport(paths);
    if (AgreesToImport(found)) {
        const std::vector<std::string>& files = found.files;
        // What becomes of duplicates is taken back with the import.
        const EditHistory::Step step(m_session.History(), Text("Import").toStdString());
        const ImportResult result = RunImport(this, files, [&](const FileProgress& progress) {
            return m_session.Import(files, progress);
        });
        ShowImported(result);
        OfferDuplicates(result);
    }
    m_isImporting = false;
    if (!m_filesToImport.empty()) m_importTimer.start(0);
}

// Where some of the files can't be read the user decides about the others.
bool DesktopWindow::AgreesToImport(const FilesToImport& found) {
    if (found.unreadable.empty()) return true;
    for (const std::string& line : found.unreadable) PrintProblem(line);
    // In a picture nobody can be asked.
    if (!m_isSession) return false;
    const QString lines = Lines(found.unreadable);
    if (found.files.empty()) {
        TellRefusal(Text("Nothing was imported.") + '\n' + lines);
        return false;
    }
    QMessageBox box(QMessageBox::Question, windowTitle(),
                    CountText("%1 file can't be imported:", "%1 files can't be imported:",
                              SizeOf(found.unreadable.size())) +
                        lines,
                    QMessageBox::Cancel, this);
    box.setTextFormat(Qt::PlainText);
    const QPushButton* others = box.addButton(Text("&Import the others"), QMessageBox::AcceptRole);
    box.button(QMessageBox::Cancel)->setText(Text("Cancel"));
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    if (box.clickedButton() == others) return true;
    statusBar()->showMessage(Text("Nothing was imported."), kMessageTime);
    return false;
}

void DesktopWindow::ShowImported(const ImportResult& result) {
    if (result.isCancelled) {
        statusBar()->showMessage(Text("Nothing was imported."), kMessageTime);
        return;
    }
    if (!result.failure.empty()) {
        TellRefusal(Text("Nothing was imported.") + "\n\n" + ProblemText(result.failure));
        return;
    }
    FillCategoryBox();
    m_frame.Refill();
    const QString told = Text("Imported: %1, %2.")
                             .arg(CountText("%1 address", "%1 addresses", SizeOf(result.addresses)),
                                  CountText("%1 to-do", "%1 to-dos", SizeOf(result.toDos)));
    statusBar()->showMessage(told, kMessageTime);
    if (result.skipped.empty()) return;
    for (const SkippedLine& entry : result.skipped) PrintProblem(TextOf(entry));
    ShowImportReport(this, told, result.skipped);
}

bool DesktopWindow::ComparesPrivate() const {
    return m_frame.Disclosed().Of(WayOut::Duplicates) == Told::Whole;
}

void DesktopWindow::OfferDuplicates(const ImportResult& result) {
    if (result.firstAddress == 0) return;
    const std::vector<DuplicatePair> pairs = FindDuplicates(
        m_session.Addresses(), ComparesPrivate(), {result.firstAddress, result.lastAddress});
    if (pairs.empty() || !AskToReview(this, pairs.size())) return;
    ReviewDuplicates(pairs, DuplicateOrigin::Import);
}

void DesktopWindow::FindAllDuplicates() {
    const std::vector<DuplicatePair> pairs =
        FindDuplicates(m_session.Addresses(), ComparesPrivate());
    if (pairs.empty()) {
        QMessageBox::information(this, windowTitle(), Text("No duplicates were found."));
        return;
    }
    ReviewDuplicates(pairs, DuplicateOrigin::Store);
}

void DesktopWindow::ReviewDuplicates(const std::vector<DuplicatePair>& pairs,
                                     DuplicateOrigin origin) {
    const auto change = [this](const std::string& name, const std::function<long()>& run) {
        return m_session.Change(name, run);
    };
    if (!ShowDuplicates(this, m_session.Addresses(), pairs, origin, change)) return;
    FillCategoryBox();
    m_frame.Refill();
}

void DesktopWindow::ChooseFileToExport() {
    const bool isCalendar = m_frame.IsShowingToDos();
    const CString filter =
        FromQt(isCalendar ? Text("Calendars") + "|*.ics;*.vcs||" : Text("Cards") + "|*.vcf||");
    const bool hasSelection = m_frame.SelectedCount() > 0;
    CExportFileDialog dialog(nullptr, isCalendar ? "ics" : "vcf", filter, &m_frame,
                             kRangeAll | (hasSelection ? kRangeSelected : 0),
                             hasSelection ? kRangeSelected : kRangeAll);
    const SaveStart start(dialog, isCalendar ? Text("To Do") : Text("Addresses"),
                          isCalendar ? ".ics" : ".vcf");
    if (dialog.DoModal() != IDOK) return;
    const std::string file = ToUtf8(dialog.GetPathName());
    KeepFolderOf(file);
    Export(file, dialog.GetRange() == kRangeSelected);
}

void DesktopWindow::Export(const std::string& file, bool isSelectionOnly) {
    std::unordered_set<std::int64_t> selected;
    for (const CBaseRecord* record : m_frame.SelectedRecords(WayOut::Export)) {
        selected.insert(record->GetId());
    }
    const Disclosure disclosure = m_frame.Disclosed();
    int untold = isSelectionOnly ? m_frame.LeftOutOfSelection(WayOut::Export) : 0;
    try {
        const ExportReport report = ExportFile(
            file, m_session.Addresses(), m_session.ToDos(), [&](const CBaseRecord& record) {
                if (isSelectionOnly) return selected.count(record.GetId()) != 0;
                if (disclosure.Of(WayOut::Export, record) == Told::Whole) return true;
                ++untold;
                return false;
            });
        QString told = CountText("%1 entry was exported.", "%1 entries were exported.",
                                 SizeOf(report.written));
        if (untold != 0) told += ' ' + LeftOutText(untold);
        statusBar()->showMessage(told, kMessageTime);
        if (report.leftOut.empty()) return;
        QMessageBox::warning(this, windowTitle(),
                             told + "\n\n" +
                                 CountText("%1 entry was left out:", "%1 entries were left out:",
                                           SizeOf(report.leftOut.size())) +
                                 Lines(report.leftOut));
    } catch (const ExchangeError& error) {
        TellRefusal(Text("Nothing was exported.") + "\n\n" + FromUtf8(error.what()));
    }
}

}  // namespace orvo::desktop
