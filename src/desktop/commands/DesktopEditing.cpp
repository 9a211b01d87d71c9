// What the user does to the entries that he has selected, and taking it back.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>

#include <desktop/dialogs/TrashDialog.h>
#include <desktop/forms/AddressForm.h>
#include <desktop/forms/CategoryChoice.h>
#include <desktop/forms/ToDoForm.h>
#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>
#include <desktop/views/EntryTexts.h>
#include <desktop/window/DesktopWindow.h>
#include <platform/qt/QtWindowSystem.h>

namespace orvo::desktop {

void DesktopWindow::NewAddress() {
    CAddressRecord record(m_session.Addresses());
    if (m_frame.Category() != kAllCategories && !m_frame.IsShowingToDos()) {
        record.SetCategoryId(m_frame.Category());
    }
    const EditHistory::Step step(m_session.History(), Text("New address").toStdString());
    if (!EditAddress(this, m_session.Addresses(), record, &m_formKeeper)) return m_frame.Refill();
    if (m_frame.IsShowingToDos()) ShowView(ViewKind::List);
    ShowEdited(record.GetId());
}

void DesktopWindow::NewToDo() {
    CToDoRecord record(m_session.ToDos());
    if (m_frame.Category() != kAllCategories && m_frame.IsShowingToDos()) {
        record.SetCategoryId(m_frame.Category());
    }
    const EditHistory::Step step(m_session.History(), Text("New to-do").toStdString());
    if (!EditToDo(this, m_session.ToDos(), record, &m_formKeeper)) return m_frame.Refill();
    ShowView(ViewKind::ToDos);
    ShowEdited(record.GetId());
}

// The form works on a record of its own, as the view may read its records anew meanwhile.
template <class Table, class Record>
bool DesktopWindow::OpenForm(Table& table, bool (*edit)(QWidget*, Table&, Record&, FormKeeper*),
                             const QString& name, std::int64_t& id) {
    Record record(table);
    if (!IsFound(table.Find(id, record))) return false;
    const EditHistory::Step step(m_session.History(), name.toStdString());
    if (!edit(this, table, record, &m_formKeeper)) return false;
    // Where the entry was gone, it may have been saved as a new one.
    id = record.GetId();
    return true;
}

void DesktopWindow::OpenSelected() {
    const std::vector<CBaseRecord*> records = m_frame.SelectedRecords(WayOut::Change);
    if (records.empty()) return TellMasked();
    if (records.size() != 1) return;
    OpenEntry(records.front()->GetId());
}

// An entry of the view that is shown.
void DesktopWindow::OpenEntry(std::int64_t id) {
    const bool isSaved =
        m_frame.IsShowingToDos()
            ? OpenForm(m_session.ToDos(), EditToDo, Text("Edit to-do"), id)
            : OpenForm(m_session.Addresses(), EditAddress, Text("Edit address"), id);
    if (isSaved) {
        ShowEdited(id);
    } else {
        m_frame.Refill();
    }
}

bool DesktopWindow::IsFound(long status) {
    if (status != 0) TellRefusal(Text("Another program has removed this entry."));
    return status == 0;
}

void DesktopWindow::ShowEdited(std::int64_t id) {
    m_frame.Refill();
    m_frame.SelectRecord(id);
    m_frame.ShownWindow().SetFocus();
}

bool DesktopWindow::SaveText(std::int64_t id, const std::string& text) {
    CToDoRecord record(m_session.ToDos());
    // There is nothing left that the text could be of.
    if (!IsFound(m_session.ToDos().Find(id, record))) return true;
    const std::string failure = m_session.Change(Text("Edit to-do").toStdString(),
                                                 [&] { return record.SetDescriptionUtf8(text); });
    m_frame.Refill();
    if (!failure.empty()) TellRefusal(Text("Nothing was changed.") + "\n\n" + ProblemText(failure));
    return failure.empty();
}

void DesktopWindow::ChangeSelected(const QString& name,
                                   const std::function<long(CBaseRecord&)>& change) {
    const std::string failure = m_session.Change(name.toStdString(), [&] {
        for (CBaseRecord* record : m_frame.SelectedRecords(WayOut::Change)) {
            if (const long status = change(*record); status != 0) return status;
        }
        return 0L;
    });
    // What was taken back is still in the view's records.
    m_frame.Refill();
    if (!failure.empty()) TellRefusal(Text("Nothing was changed.") + "\n\n" + ProblemText(failure));
}

void DesktopWindow::DeleteSelected() {
    const auto count = static_cast<std::int64_t>(m_frame.SelectedRecords(WayOut::Change).size());
    if (count == 0) return TellMasked();
    const bool isToDos = m_frame.IsShowingToDos();
    const QString question =
        isToDos
            ? CountText("Move %1 to-do to the trash?", "Move %1 to-dos to the trash?", count)
            : CountText("Move %1 address to the trash?", "Move %1 addresses to the trash?", count);
    if (m_options.IsConfirmOnDelete() &&
        QMessageBox::question(this, windowTitle(), question) != QMessageBox::Yes) {
        return;
    }
    CBaseTable& table = m_frame.ShownTable();
    ChangeSelected(isToDos ? CountText("Delete %1 to-do", "Delete %1 to-dos", count)
                           : CountText("Delete %1 address", "Delete %1 addresses", count),
                   [&table](CBaseRecord& record) { return table.Delete(record); });
}

void DesktopWindow::SetCategoryOfSelected() {
    if (m_frame.SelectedRecords(WayOut::Change).empty()) return TellMasked();
    const std::optional<int> category = ChooseCategory(this, m_frame.ShownTable());
    if (!category) return;
    ChangeSelected(Text("Change category"),
                   [category](CBaseRecord& record) { return record.SetCategoryId(*category); });
}

void DesktopWindow::CopySelected() {
    const std::vector<CBaseRecord*> records = m_frame.SelectedRecords(WayOut::Clipboard);
    if (records.empty()) return TellMasked();
    TellLeftOut(m_frame.LeftOutOfSelection(WayOut::Clipboard));
    QApplication::clipboard()->setMimeData(EntriesAsMimeData(records).release());
}

// To-dos can't be dragged.
std::unique_ptr<QMimeData> DesktopWindow::DraggedFrom(QPoint place) {
    if (m_frame.IsShowingToDos()) return nullptr;
    const auto* rows = dynamic_cast<const ListPeer*>(m_frame.ShownWindow().GetPeer());
    const QPoint point = QtWindowSystem::WidgetOf(&m_frame.ShownWindow())->mapFromGlobal(place);
    const int row = rows ? rows->HitTest({point.x(), point.y()}).row : -1;
    if (row < 0 || !rows->IsSelected(row)) return nullptr;
    const std::vector<CBaseRecord*> records = m_frame.SelectedRecords(WayOut::Drag);
    TellLeftOut(m_frame.LeftOutOfSelection(WayOut::Drag));
    return records.empty() ? nullptr : EntriesAsMimeData(records);
}

void DesktopWindow::SelectAll() {
    auto* rows = dynamic_cast<ListPeer*>(m_frame.ShownWindow().GetPeer());
    if (!rows || rows->RowCount() == 0) return;
    rows->Select(0, rows->RowCount() - 1, true);
    m_frame.ShownWindow().SetFocus();
    // At once: the next key may be that of Copy, which is off as long as nothing counts as
    // selected.
    ShowCounts();
}

void DesktopWindow::TakeBack(const std::function<std::string()>& undoOrRedo) {
    TellRefusal(ProblemText(undoOrRedo()));
    FillCategoryBox();
    m_frame.Refill();
}

void DesktopWindow::ShowSteps() {
    const EditHistory& history = m_session.History();
    m_undo->setEnabled(history.CanUndo());
    m_redo->setEnabled(history.CanRedo());
    // A name may hold what the user has typed.
    const auto escaped = [](const std::string& name) {
        return FromUtf8(name).replace('&', QLatin1String("&&"));
    };
    m_undo->setText(history.CanUndo() ? Text("&Undo: %1").arg(escaped(history.UndoName()))
                                      : Text("&Undo"));
    m_redo->setText(history.CanRedo() ? Text("&Redo: %1").arg(escaped(history.RedoName()))
                                      : Text("&Redo"));
}

// Qt asks at the menu key only.
void DesktopWindow::AskForMenu() {
    QWidget* focus = QApplication::focusWidget();
    if (!focus) return;
    const QPoint place = focus->rect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, place, focus->mapToGlobal(place));
    QApplication::sendEvent(focus, &event);
}

// By a key it comes from what has the focus, by the mouse from what is below it.
void DesktopWindow::contextMenuEvent(QContextMenuEvent* event) {
    const QWidget* view = QtWindowSystem::WidgetOf(&m_frame.ShownWindow());
    const bool isByMouse = event->reason() == QContextMenuEvent::Mouse;
    const QWidget* asked = isByMouse ? childAt(event->pos()) : QApplication::focusWidget();
    if (!view || !view->isAncestorOf(asked)) return;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* action : m_selectionActions) menu->addAction(action);
    menu->popup(isByMouse ? event->globalPos() : MenuPlace());
}

// Below the row that has the focus, or in the middle where that isn't in view.
QPoint DesktopWindow::MenuPlace() {
    const auto* rows = dynamic_cast<const ListPeer*>(m_frame.ShownWindow().GetPeer());
    const QWidget* view = QtWindowSystem::WidgetOf(&m_frame.ShownWindow());
    if (!rows || !view) return pos();
    CRect row;
    const bool isFocused = rows->RowRect(rows->FocusRow(), RowPart::Label, row);
    const QPoint below(row.left, row.bottom);
    const QPoint seen = isFocused && view->rect().contains(below) ? below : view->rect().center();
    return view->mapToGlobal(seen);
}

void DesktopWindow::OpenTrash() {
    if (!ShowTrash(this, m_session, m_frame.Disclosed())) return;
    FillCategoryBox();
    m_frame.Refill();
}

}  // namespace orvo::desktop
