// What the user does to the entries that he has selected, and taking it back.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QMimeData>

#include <desktop/commands/EditCommands.h>
#include <desktop/dialogs/TrashDialog.h>
#include <desktop/forms/CategoryChoice.h>
#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>
#include <desktop/views/EntryTexts.h>
#include <platform/qt/QtWindowSystem.h>

namespace orvo::desktop {

void EditCommands::ChangeSelected(const QString& name,
                                  const std::function<long(CBaseRecord&)>& change) {
    ShownEntries& entries = m_context.Frame().Entries();
    const std::string failure = m_context.Session().Change(name.toStdString(), [&] {
        for (CBaseRecord* record : entries.SelectedRecords(WayOut::Change)) {
            if (const long status = change(*record); status != 0) return status;
        }
        return 0L;
    });
    // What was taken back is still in the view's records.
    entries.Refill();
    if (!failure.empty()) {
        m_context.Refuse(Text("Nothing was changed.") + "\n\n" + ProblemText(failure));
    }
}

void EditCommands::DeleteSelected() {
    ShownEntries& entries = m_context.Frame().Entries();
    const auto count = static_cast<std::int64_t>(entries.SelectedRecords(WayOut::Change).size());
    if (count == 0) return m_context.SayMasked();
    const bool isToDos = m_context.Frame().IsShowingToDos();
    const QString question =
        isToDos
            ? CountText("Move %1 to-do to the trash?", "Move %1 to-dos to the trash?", count)
            : CountText("Move %1 address to the trash?", "Move %1 addresses to the trash?", count);
    QWidget& window = m_context.Window();
    if (m_context.Options().IsConfirmOnDelete() &&
        QMessageBox::question(&window, window.windowTitle(), question) != QMessageBox::Yes) {
        return;
    }
    // Meanwhile another view may have come up.
    CBaseTable& table = m_context.Frame().Entries().Table();
    ChangeSelected(isToDos ? CountText("Delete %1 to-do", "Delete %1 to-dos", count)
                           : CountText("Delete %1 address", "Delete %1 addresses", count),
                   [&table](CBaseRecord& record) { return table.Delete(record); });
}

void EditCommands::SetCategoryOfSelected() {
    ShownEntries& entries = m_context.Frame().Entries();
    if (entries.SelectedRecords(WayOut::Change).empty()) return m_context.SayMasked();
    const std::optional<int> category = ChooseCategory(&m_context.Window(), entries.Table());
    if (!category) return;
    ChangeSelected(Text("Change category"),
                   [category](CBaseRecord& record) { return record.SetCategoryId(*category); });
}

void EditCommands::CopySelected() {
    ShownEntries& entries = m_context.Frame().Entries();
    const std::vector<CBaseRecord*> records = entries.SelectedRecords(WayOut::Clipboard);
    if (records.empty()) return m_context.SayMasked();
    m_context.SayLeftOut(entries.LeftOutOfSelection(WayOut::Clipboard));
    QApplication::clipboard()->setMimeData(EntriesAsMimeData(records).release());
}

// To-dos can't be dragged.
std::unique_ptr<QMimeData> EditCommands::DraggedFrom(QPoint place) {
    ShownEntries& entries = m_context.Frame().Entries();
    if (m_context.Frame().IsShowingToDos()) return nullptr;
    const auto* rows = dynamic_cast<const ListPeer*>(entries.Window().GetPeer());
    const QPoint point = QtWindowSystem::WidgetOf(&entries.Window())->mapFromGlobal(place);
    const int row = rows ? rows->HitTest({point.x(), point.y()}).row : -1;
    if (row < 0 || !rows->IsSelected(row)) return nullptr;
    const std::vector<CBaseRecord*> records = entries.SelectedRecords(WayOut::Drag);
    m_context.SayLeftOut(entries.LeftOutOfSelection(WayOut::Drag));
    return records.empty() ? nullptr : EntriesAsMimeData(records);
}

void EditCommands::SelectAll() {
    m_context.Frame().Entries().SelectAll();
    // At once: the next key may be that of Copy, which is off as long as nothing counts as
    // selected.
    m_context.ShowCounts();
}

void EditCommands::Undo() {
    TakeBack(m_context.Session().Undo());
}

void EditCommands::Redo() {
    TakeBack(m_context.Session().Redo());
}

void EditCommands::TakeBack(const std::string& problem) {
    m_context.Refuse(ProblemText(problem));
    m_context.Refresh();
}

void EditCommands::OpenTrash() {
    const Disclosure disclosure(m_context.Options());
    if (ShowTrash(&m_context.Window(), m_context.Session(), disclosure)) m_context.Refresh();
}

}  // namespace orvo::desktop
