// Import into the store of the window, and export from it.
// SPDX-License-Identifier: MIT
#include <QLocale>
#include <QMessageBox>
#include <QStatusBar>
#include <unordered_set>

#include <desktop/DesktopWindow.h>
#include <desktop/Problems.h>
#include <desktop/Texts.h>
#include <exchange/ExportFile.h>
#include <orvoshare/integration/ExportFileDialog.h>
#include <orvoshare/integration/ImportFileDialog.h>
#include <platform/qt/QtConvert.h>
#include <platform/text/SystemText.h>

namespace orvo::desktop {
namespace {

// So many entries that were left out are told in a message.
constexpr std::size_t kMostToldEntries = 12;

QString Count(std::size_t count) {
    return QLocale().toString(static_cast<qulonglong>(count));
}

// The rest of a message: the first of the lines.
QString Lines(const std::vector<std::string>& lines) {
    QString text;
    for (std::size_t i = 0; i < lines.size() && i < kMostToldEntries; ++i) {
        text += '\n' + FromUtf8(lines[i]);
    }
    return text;
}

}  // namespace

void DesktopWindow::ChooseFileToImport() {
    const CString filter =
        FromQt(Text("Cards and calendars") + "|*.vcf;*.vcs;*.ics|" + Text("All files") + "|*||");
    CImportFileDialog dialog(filter, &m_frame, FromQt(Text("Import")));
    if (dialog.DoModal() == IDOK) Import({ToUtf8(dialog.GetPathName())});
}

void DesktopWindow::ImportLater(const std::vector<std::string>& files) {
    m_filesToImport.insert(m_filesToImport.end(), files.begin(), files.end());
    m_importTimer.start(0);
}

void DesktopWindow::Import(const std::vector<std::string>& files) {
    const ImportResult result = m_session.Import(files);
    if (!result.failure.empty()) {
        TellRefusal(Text("Nothing was imported.") + "\n\n" + FromUtf8(result.failure));
        return;
    }
    FillCategoryBox();
    m_frame.Refill();
    const QString told = Text("%1 addresses and %2 to-dos were imported.")
                             .arg(Count(result.addresses), Count(result.toDos));
    statusBar()->showMessage(told, kMessageTime);
    if (result.skipped.empty()) return;
    for (const std::string& entry : result.skipped) PrintProblem(entry);
    QMessageBox::information(this, windowTitle(),
                             told + "\n\n" +
                                 Text("%1 entries were left out:").arg(result.skipped.size()) +
                                 Lines(result.skipped));
}

void DesktopWindow::ChooseFileToExport() {
    const bool isCalendar = m_frame.IsShowingToDos();
    const CString filter =
        FromQt(isCalendar ? Text("Calendars") + "|*.ics;*.vcs||" : Text("Cards") + "|*.vcf||");
    const bool hasSelection = m_frame.SelectedCount() > 0;
    CExportFileDialog dialog(nullptr, isCalendar ? "ics" : "vcf", filter, &m_frame,
                             kRangeAll | (hasSelection ? kRangeSelected : 0),
                             hasSelection ? kRangeSelected : kRangeAll);
    if (dialog.DoModal() == IDOK)
        Export(ToUtf8(dialog.GetPathName()), dialog.GetRange() == kRangeSelected);
}

// What is hidden or masked on the screen stays out of files, too.
void DesktopWindow::Export(const std::string& file, bool isSelectionOnly) {
    std::unordered_set<std::int64_t> selected;
    for (const CBaseRecord* record : m_frame.SelectedRecords()) selected.insert(record->GetId());
    const bool showsPrivate = PrivacyOf(m_options) == Privacy::Show;
    try {
        const ExportReport report = ExportFile(
            file, m_session.Addresses(), m_session.ToDos(), [&](const CBaseRecord& record) {
                if (record.IsPrivate() && !showsPrivate) return false;
                return !isSelectionOnly || selected.count(record.GetId()) != 0;
            });
        const QString told = Text("%1 entries were exported.").arg(Count(report.written));
        statusBar()->showMessage(told, kMessageTime);
        if (report.leftOut.empty()) return;
        QMessageBox::warning(this, windowTitle(),
                             told + "\n\n" +
                                 Text("%1 entries were left out:").arg(report.leftOut.size()) +
                                 Lines(report.leftOut));
    } catch (const ExchangeError& error) {
        TellRefusal(Text("Nothing was exported.") + "\n\n" + FromUtf8(error.what()));
    }
}

}  // namespace orvo::desktop
