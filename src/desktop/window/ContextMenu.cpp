// The menu of what is selected, where the views are asked for one.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QMenu>
#include <QShortcut>

#include <desktop/window/ContextMenu.h>
#include <platform/qt/QtWindowSystem.h>

namespace orvo::desktop {
namespace {

// Qt asks at the menu key only.
void AskForMenu() {
    QWidget* focus = QApplication::focusWidget();
    if (!focus) return;
    const QPoint place = focus->rect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, place, focus->mapToGlobal(place));
    QApplication::sendEvent(focus, &event);
}

}  // namespace

void ContextMenu::AddKey() {
    auto* menuKey = new QShortcut(QKeySequence("Shift+F10"), &m_context.Window());
    QObject::connect(menuKey, &QShortcut::activated, menuKey, AskForMenu);
}

// By a key it comes from what has the focus, by the mouse from what is below it.
void ContextMenu::Open(const QContextMenuEvent& event, const std::vector<QAction*>& actions) const {
    QWidget& window = m_context.Window();
    const QWidget* view = QtWindowSystem::WidgetOf(&m_context.Frame().Entries().Window());
    const bool isByMouse = event.reason() == QContextMenuEvent::Mouse;
    const QWidget* asked = isByMouse ? window.childAt(event.pos()) : QApplication::focusWidget();
    if (!view || !view->isAncestorOf(asked)) return;
    auto* menu = new QMenu(&window);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* action : actions) menu->addAction(action);
    menu->popup(isByMouse ? event.globalPos() : Place());
}

// Below the row that has the focus, or in the middle where that isn't in view.
QPoint ContextMenu::Place() const {
    ViewFrame& frame = m_context.Frame();
    const QWidget* view = QtWindowSystem::WidgetOf(&frame.Entries().Window());
    if (!view) return m_context.Window().pos();
    CRect row;
    const bool isFocused = frame.Entries().FocusPlace(row);
    const QPoint below(row.left, row.bottom);
    const QPoint seen = isFocused && view->rect().contains(below) ? below : view->rect().center();
    return view->mapToGlobal(seen);
}

}  // namespace orvo::desktop
