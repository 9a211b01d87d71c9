// A form that was open when the program ended, offered again.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include <desktop/texts/Texts.h>
#include <desktop/window/DesktopWindow.h>

namespace orvo::desktop {
namespace {

// Milliseconds until it is tried again where something else is asked.
constexpr int kWait = 300;

template <class Record, class Table>
bool IsThere(Table& table, std::int64_t id) {
    Record record(table);
    return id != 0 && table.Find(id, record) == 0 && record.IsDeleted() == 0;
}

}  // namespace

// What is private waits until the password is given.
void DesktopWindow::OfferKeptForm() {
    if (!m_isSession || m_hasOfferedForm) return;
    const std::optional<KeptForm> form = m_formKeeper.Kept();
    if (!form || (form->isPrivate && m_isLocked)) return;
    if (QApplication::activeModalWidget() || m_isImporting) {
        QTimer::singleShot(kWait, this, [this] { OfferKeptForm(); });
        return;
    }
    m_hasOfferedForm = true;
    QMessageBox box(QMessageBox::Question, windowTitle(),
                    Text("The form \"%1\" was open when the program ended. What was typed there "
                         "isn't saved yet.")
                        .arg(form->title),
                    QMessageBox::NoButton, this);
    box.setTextFormat(Qt::PlainText);
    QPushButton* again = box.addButton(Text("&Open it again"), QMessageBox::AcceptRole);
    const QPushButton* discard = box.addButton(Text("&Discard"), QMessageBox::DestructiveRole);
    box.addButton(Text("&Later"), QMessageBox::RejectRole);
    box.setDefaultButton(again);
    box.exec();
    if (box.clickedButton() == discard) m_formKeeper.Remove();
    if (box.clickedButton() == again) OpenKeptForm(*form);
}

// Where the entry is gone meanwhile, the texts go into a new one.
void DesktopWindow::OpenKeptForm(const KeptForm& form) {
    m_formKeeper.BeginWith(form.fields);
    if (form.isToDo ? IsThere<CToDoRecord>(m_session.ToDos(), form.id)
                    : IsThere<CAddressRecord>(m_session.Addresses(), form.id)) {
        if (m_frame.IsShowingToDos() != form.isToDo) {
            ShowView(form.isToDo ? ViewKind::ToDos : ViewKind::List);
        }
        OpenEntry(form.id);
    } else if (form.isToDo) {
        NewToDo();
    } else {
        NewAddress();
    }
}

}  // namespace orvo::desktop
