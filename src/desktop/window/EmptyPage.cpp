// What stands in the place of a view for which the store holds nothing yet.
// SPDX-License-Identifier: MIT
#include <QVBoxLayout>

#include <desktop/dialogs/TrashDialog.h>
#include <desktop/texts/Texts.h>
#include <desktop/window/EmptyPage.h>
#include <platform/qt/QtWindowSystem.h>

namespace orvo::desktop {

void EmptyPage::PutOver(QWidget& views) {
    m_page = new QWidget;
    m_page->setBackgroundRole(QPalette::Base);
    m_page->setAutoFillBackground(true);
    m_sentence = new QLabel;
    m_sentence->setAlignment(Qt::AlignCenter);
    m_sentence->setWordWrap(true);
    auto* lines = new QVBoxLayout(m_page);
    lines->addStretch();
    lines->addWidget(m_sentence);
    lines->addSpacing(m_sentence->sizeHint().height());
    auto* middle = new QHBoxLayout;
    middle->addStretch();
    auto* buttons = new QVBoxLayout;
    m_import = AddButton(*buttons, [this] { m_commands.imports.ChooseFiles(); });
    m_new = AddButton(*buttons, [this] { AddEntry(); });
    m_restore = AddButton(*buttons, [this] { m_commands.edits.OpenTrash(); });
    middle->addLayout(buttons);
    middle->addStretch();
    lines->addLayout(middle);
    lines->addStretch();
    m_import->setText(Text("Import a file..."));
    m_restore->setText(Text("Restore from the trash..."));
    m_page->hide();
    auto* whole = new QVBoxLayout(&views);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(m_page);
}

QPushButton* EmptyPage::AddButton(QLayout& layout, const std::function<void()>& run) {
    auto* button = new QPushButton;
    button->setAutoDefault(true);  // Return presses it
    QObject::connect(button, &QPushButton::clicked, button, [run] { run(); });
    layout.addWidget(button);
    return button;
}

void EmptyPage::AddEntry() {
    if (m_context.Frame().IsShowingToDos()) {
        m_commands.forms.NewToDo();
    } else {
        m_commands.forms.NewAddress();
    }
}

// Nothing that the user does elsewhere in the window would be torn from him.
bool EmptyPage::HasIdleFocus() const {
    ViewFrame& frame = m_context.Frame();
    const QWidget* focus = m_context.Window().focusWidget();
    return !focus || focus == QtWindowSystem::WidgetOf(&frame.LookupBox()) ||
           QtWindowSystem::WidgetOf(&frame)->isAncestorOf(focus);
}

// What lies below gets no keys, and isn't read out.
void EmptyPage::Cover(QWidget* view) {
    if (m_covered) m_covered->setEnabled(true);
    m_covered = view;
    if (m_covered) m_covered->setEnabled(false);
}

QString EmptyPage::Sentence() const {
    const ViewFrame& frame = m_context.Frame();
    if (frame.IsShowingToDos()) return Text("What you have to do will be listed here.");
    if (frame.IsShowingAddresses()) return Text("The people you know will be listed here.");
    return Text(
        "Birthdays and anniversaries will be listed here, once the addresses of people have some.");
}

void EmptyPage::Show() {
    ViewFrame& frame = m_context.Frame();
    const bool isToDos = frame.IsShowingToDos();
    QWidget* view = QtWindowSystem::WidgetOf(&frame.Entries().Window());
    if (!frame.Entries().IsEmpty()) {
        if (!m_covered) return;
        const bool hadFocus = m_page->isAncestorOf(m_context.Window().focusWidget());
        Cover(nullptr);
        if (hadFocus) frame.Entries().Window().SetFocus();
        return m_page->hide();
    }
    const bool takesFocus = m_covered != view && HasIdleFocus();
    m_sentence->setText(Sentence());
    m_import->setAccessibleDescription(m_sentence->text());
    m_new->setText(isToDos ? Text("New to-do...") : Text("New address..."));
    m_restore->setVisible(HoldsTrash(m_context.Session(), Disclosure(m_context.Options())));
    Cover(view);
    m_page->show();
    m_page->raise();
    if (takesFocus) m_import->setFocus();
}

}  // namespace orvo::desktop
