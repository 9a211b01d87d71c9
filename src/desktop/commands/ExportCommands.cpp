// Export from the store.
// SPDX-License-Identifier: MIT
#include <QMessageBox>
#include <iterator>
#include <unordered_set>

#include <desktop/commands/ExportCommands.h>
#include <desktop/commands/SaveStart.h>
#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>
#include <desktop/views/EntryTexts.h>
#include <exchange/files/ExportFile.h>
#include <exchange/files/NewFile.h>
#include <orvoshare/integration/ExportFileDialog.h>
#include <people/Birthdays.h>
#include <people/YearlyDays.h>
#include <platform/qt/QtConvert.h>
#include <platform/text/SystemText.h>

namespace orvo::desktop {
namespace {

bool HoldsBirthday(const CAddressRecord& record) {
    const YearlyDays found = ReadYearlyDays(record);
    return !found.days.empty() && found.days.front().kind == DetailKind::Birthday;
}

}  // namespace

void ExportCommands::ChooseFile() {
    if (m_context.Frame().Shown() == ViewKind::Birthdays) return ChooseCalendar();
    ShownEntries& entries = m_context.Frame().Entries();
    const EntryFile kind = entries.File();
    const CString filter = FromQt(kind.filter);
    const bool hasSelection = entries.SelectedCount() > 0;
    CExportFileDialog dialog(nullptr, kind.ending, filter, &m_context.Frame(),
                             kRangeAll | (hasSelection ? kRangeSelected : 0),
                             hasSelection ? kRangeSelected : kRangeAll);
    const std::string ending = std::string(".") + kind.ending;
    const SaveStart start(dialog, entries.Name(), ending.c_str());
    if (dialog.DoModal() != IDOK) return;
    const std::string file = ToUtf8(dialog.GetPathName());
    KeepFolderOf(file);
    Export(file, dialog.GetRange() == kRangeSelected);
}

std::unordered_set<std::int64_t> ExportCommands::SelectedIds() const {
    std::unordered_set<std::int64_t> selected;
    for (const CBaseRecord* record : m_context.Frame().Entries().SelectedRecords(WayOut::Export)) {
        selected.insert(record->GetId());
    }
    return selected;
}

void ExportCommands::Export(const std::string& file, bool isSelectionOnly) {
    ShownEntries& entries = m_context.Frame().Entries();
    StoreSession& session = m_context.Session();
    const std::unordered_set<std::int64_t> selected = SelectedIds();
    const Disclosure disclosure(m_context.Options());
    int untold = isSelectionOnly ? entries.LeftOutOfSelection(WayOut::Export) : 0;
    try {
        const ExportReport report =
            ExportFile(file, session.Addresses(), session.ToDos(), [&](const CBaseRecord& record) {
                if (isSelectionOnly) return selected.count(record.GetId()) != 0;
                if (disclosure.Of(WayOut::Export, record) == Told::Whole) return true;
                ++untold;
                return false;
            });
        QString told = CountText("%1 entry was exported.", "%1 entries were exported.",
                                 static_cast<std::int64_t>(report.written));
        if (untold != 0) told += ' ' + LeftOutText(untold);
        m_context.Say(told);
        if (report.leftOut.empty()) return;
        QMessageBox::warning(&m_context.Window(), m_context.Window().windowTitle(),
                             told + "\n\n" +
                                 CountText("%1 entry was left out:", "%1 entries were left out:",
                                           std::ssize(report.leftOut)) +
                                 ProblemLines(report.leftOut));
    } catch (const ExchangeError& error) {
        m_context.Refuse(Text("Nothing was exported.") + "\n\n" + FromUtf8(error.what()));
    }
}

void ExportCommands::ChooseCalendar() {
    ShownEntries& birthdays = m_context.Frame().Birthdays();
    const EntryFile kind = birthdays.File();
    const CString filter = FromQt(kind.filter);
    const bool hasSelection =
        m_context.Frame().Shown() == ViewKind::Birthdays && birthdays.SelectedCount() > 0;
    CExportFileDialog dialog(nullptr, kind.ending, filter, &m_context.Frame(),
                             kRangeAll | (hasSelection ? kRangeSelected : 0),
                             hasSelection ? kRangeSelected : kRangeAll);
    const SaveStart start(dialog, birthdays.Name(), ".ics");
    if (dialog.DoModal() != IDOK) return;
    const std::string file = ToUtf8(dialog.GetPathName());
    KeepFolderOf(file);
    ExportCalendar(file, dialog.GetRange() == kRangeSelected);
}

void ExportCommands::ExportCalendar(const std::string& file, bool isSelectionOnly) {
    const std::unordered_set<std::int64_t> selected =
        isSelectionOnly ? SelectedIds() : std::unordered_set<std::int64_t>();
    const Disclosure disclosure(m_context.Options());
    int untold =
        isSelectionOnly ? m_context.Frame().Entries().LeftOutOfSelection(WayOut::Export) : 0;
    const std::vector<Birthday> birthdays = ReadBirthdays(
        m_context.Session().Addresses(), Today(),
        [&](const CAddressRecord& record) {
            if (isSelectionOnly) return selected.count(record.GetId()) != 0;
            const bool isTold = disclosure.Of(WayOut::Export, record) == Told::Whole;
            untold += isTold || !HoldsBirthday(record) ? 0 : 1;
            return isTold;
        },
        [](CAddressRecord& record) { return EntryName(record).toStdString(); });
    try {
        NewFile calendar(file);
        calendar.Write(CalendarOf(birthdays));
        calendar.Replace();
        QString told = CountText("%1 birthday was exported.", "%1 birthdays were exported.",
                                 std::ssize(birthdays));
        if (untold != 0) told += ' ' + LeftOutText(untold);
        m_context.Say(told);
    } catch (const ExchangeError& error) {
        m_context.Refuse(Text("Nothing was exported.") + "\n\n" + FromUtf8(error.what()));
    }
}

}  // namespace orvo::desktop
