// The keys of commands that the lookup box leaves to the window.
// SPDX-License-Identifier: MIT
#include <QKeyEvent>
#include <QLineEdit>

#include <desktop/views/LookupKeys.h>

namespace orvo::desktop {

LookupKeys::LookupKeys(QLineEdit& box, std::function<void()> open)
    : QObject(&box), m_box(box), m_open(std::move(open)) {
    box.installEventFilter(this);
}

bool LookupKeys::eventFilter(QObject* watched, QEvent* event) {
    // Where the box doesn't accept this event, the window's shortcuts are tried.
    if (event->type() == QEvent::ShortcutOverride && IsOfNoUse(*static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            m_open();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

bool LookupKeys::IsOfNoUse(QKeyEvent& key) const {
    const bool isSelected = m_box.hasSelectedText();
    const bool isAtEnd = m_box.cursorPosition() == m_box.text().size();
    struct Row {
        QKeySequence::StandardKey key;
        bool isOfNoUse;
    };
    const Row rows[] = {{QKeySequence::Delete, isAtEnd && !isSelected},
                        {QKeySequence::Copy, !isSelected},
                        {QKeySequence::SelectAll, m_box.text().isEmpty()},
                        {QKeySequence::Undo, true},  // what is typed here can't be taken back
                        {QKeySequence::Redo, true}};
    for (const Row& row : rows) {
        if (key.matches(row.key)) return row.isOfNoUse;
    }
    return false;
}

}  // namespace orvo::desktop
