// The forms in which the user writes entries.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include <desktop/commands/FormCommands.h>
#include <desktop/commands/PartCommands.h>
#include <desktop/forms/AddressForm.h>
#include <desktop/forms/ToDoForm.h>
#include <desktop/texts/Texts.h>
#include <host/Disclosure.h>
#include <platform/io/FileReplacement.h>
#include <platform/settings/SettingsStore.h>

namespace orvo::desktop {
namespace {

template <class Record, class Table>
bool IsThere(Table& table, std::int64_t id) {
    Record record(table);
    return id != 0 && table.Find(id, record) == 0 && record.IsDeleted() == 0;
}

}  // namespace

FormCommands::FormCommands(CommandContext& context)
    : m_context(context),
      m_keeper(FolderOf(SettingsStore::Path()) + "/unsaved-" +
               DataSetUser(context.Session().Path()) + ".json") {
    m_openTimer.setSingleShot(true);
    QObject::connect(&m_openTimer, &QTimer::timeout, [this] { ShowAndOpen(m_toOpen); });
}

void FormCommands::NewAddress() {
    StoreSession& session = m_context.Session();
    ViewFrame& frame = m_context.Frame();
    CAddressRecord record(session.Addresses());
    const int category = frame.Entries().Category();
    if (!frame.IsShowingToDos() && category != kAllCategories) record.SetCategoryId(category);
    const EditHistory::Step step(session.History(), Text("New address").toStdString());
    if (!EditAddress(&m_context.Window(), session.Addresses(), record, &m_keeper)) {
        return frame.Entries().Refill();
    }
    if (frame.IsShowingToDos()) m_context.ShowView(ViewKind::List);
    ShowEdited(record.GetId());
    if (frame.Shown() == ViewKind::Birthdays && frame.Entries().SelectedCount() == 0) {
        m_context.ShowView(ViewKind::List);
        ShowEdited(record.GetId());
    }
}

void FormCommands::NewToDo() {
    StoreSession& session = m_context.Session();
    ViewFrame& frame = m_context.Frame();
    CToDoRecord record(session.ToDos());
    const int category = frame.ToDos().Category();
    if (frame.IsShowingToDos() && category != kAllCategories) record.SetCategoryId(category);
    const EditHistory::Step step(session.History(), Text("New to-do").toStdString());
    if (!EditToDo(&m_context.Window(), session.ToDos(), record, &m_keeper))
        return frame.Entries().Refill();
    m_context.ShowView(ViewKind::ToDos);
    ShowEdited(record.GetId());
}

// The form works on a record of its own, as the view may read its records anew meanwhile.
template <class Record, class Table>
bool FormCommands::OpenForm(Table& table, const std::function<bool(Record&)>& edit,
                            const QString& name, std::int64_t& id) {
    Record record(table);
    if (!m_context.IsFound(table.Find(id, record))) return false;
    const EditHistory::Step step(m_context.Session().History(), name.toStdString());
    if (!edit(record)) return false;
    // Where the entry was gone, it may have been saved as a new one.
    id = record.GetId();
    return true;
}

void FormCommands::OpenSelected() {
    const std::vector<CBaseRecord*> records =
        m_context.Frame().Entries().SelectedRecords(WayOut::Change);
    if (records.empty()) return m_context.SayMasked();
    if (records.size() != 1) return;
    OpenEntry(records.front()->GetId());
}

bool FormCommands::OpenAddressForm(std::int64_t& id) {
    CAddressTable& table = m_context.Session().Addresses();
    return OpenForm<CAddressRecord>(
        table,
        [&](CAddressRecord& record) {
            return EditAddress(&m_context.Window(), table, record, &m_keeper);
        },
        Text("Edit address"), id);
}

// Where the form is given up, what was done to the parts is, too.
bool FormCommands::OpenToDoForm(std::int64_t& id) {
    StoreSession& session = m_context.Session();
    CToDoTable& table = session.ToDos();
    const PartsContext parts = MakePartsContext(m_context);
    const std::uint64_t steps = session.History().Count();
    const bool isSaved = OpenForm<CToDoRecord>(
        table,
        [&](CToDoRecord& record) {
            return EditToDoWithParts(&m_context.Window(), table, record, &m_keeper, parts);
        },
        Text("Edit to-do"), id);
    if (!isSaved && session.History().Count() != steps) m_context.Refuse(FromUtf8(session.Undo()));
    return isSaved;
}

void FormCommands::OpenToDo(std::int64_t id) {
    OpenToDoForm(id);
    m_context.Frame().Entries().Refill();
}

// An entry of the view that is shown.
void FormCommands::OpenEntry(std::int64_t id) {
    if (m_context.Frame().IsShowingToDos() ? OpenToDoForm(id) : OpenAddressForm(id)) {
        ShowEdited(id);
    } else {
        m_context.Frame().Entries().Refill();
    }
}

void FormCommands::OpenToDoLater(std::int64_t id) {
    m_toOpen = id;
    m_openTimer.start(0);
}

void FormCommands::ShowAndOpen(std::int64_t id) {
    if (QApplication::activeModalWidget()) return;
    m_context.ShowView(ViewKind::ToDos);
    CToDoRecord record(m_context.Session().ToDos());
    if (id == 0 || !m_context.IsFound(m_context.Session().ToDos().Find(id, record))) return;
    const Disclosure disclosure(m_context.Options());
    if (record.IsDeleted() || disclosure.Of(WayOut::Change, record) != Told::Whole) return;
    m_context.Frame().Entries().SelectRecord(id);
    OpenEntry(id);
}

void FormCommands::ShowEdited(std::int64_t id) {
    ShownEntries& entries = m_context.Frame().Entries();
    entries.Refill();
    entries.SelectRecord(id);
    entries.Window().SetFocus();
}

std::optional<KeptForm> FormCommands::Kept() const {
    return m_hasOffered ? std::nullopt : m_keeper.Kept();
}

void FormCommands::Offer(const KeptForm& form) {
    m_hasOffered = true;
    QMessageBox box(QMessageBox::Question, m_context.Window().windowTitle(),
                    Text("The form \"%1\" was open when the program ended. What was typed there "
                         "isn't saved yet.")
                        .arg(form.title),
                    QMessageBox::NoButton, &m_context.Window());
    box.setTextFormat(Qt::PlainText);
    QPushButton* again = box.addButton(Text("&Open it again"), QMessageBox::AcceptRole);
    const QPushButton* discard = box.addButton(Text("&Discard"), QMessageBox::DestructiveRole);
    box.addButton(Text("&Later"), QMessageBox::RejectRole);
    box.setDefaultButton(again);
    box.exec();
    if (box.clickedButton() == discard) m_keeper.Remove();
    if (box.clickedButton() == again) OpenKept(form);
}

// Where the entry is gone meanwhile, the texts go into a new one.
void FormCommands::OpenKept(const KeptForm& form) {
    m_keeper.BeginWith(form.fields);
    StoreSession& session = m_context.Session();
    if (form.isToDo ? IsThere<CToDoRecord>(session.ToDos(), form.id)
                    : IsThere<CAddressRecord>(session.Addresses(), form.id)) {
        if (m_context.Frame().IsShowingToDos() != form.isToDo) {
            m_context.ShowView(form.isToDo ? ViewKind::ToDos : ViewKind::List);
        }
        OpenEntry(form.id);
    } else if (form.isToDo) {
        NewToDo();
    } else {
        NewAddress();
    }
}

}  // namespace orvo::desktop
