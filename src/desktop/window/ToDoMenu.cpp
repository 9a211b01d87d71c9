// The commands of the menu of to-dos behind their orders: parts of to-dos, and which ones show.
// SPDX-License-Identifier: MIT
#include <desktop/options/DesktopPreferences.h>
#include <desktop/texts/Texts.h>
#include <desktop/window/ToDoMenu.h>

namespace orvo::desktop {

void ToDoMenu::PutInto(QMenu& menu) {
    PutPartsInto(menu);
    menu.addSeparator();
    AddFlag(menu, Untranslated("&Show completed"), &COrvoDesktopOptions::GetTodoShowCompleted,
            &COrvoDesktopOptions::SetTodoShowCompleted);
    AddFlag(menu, Untranslated("Only what is d&ue"), &COrvoDesktopOptions::GetTodoShowDueItemsOnly,
            &COrvoDesktopOptions::SetTodoShowDueItemsOnly);
    QAction* unstarted = menu.addAction(Text("&Hide what hasn't begun"));
    unstarted->setCheckable(true);
    unstarted->setChecked(HidesUnstarted());
    QObject::connect(unstarted, &QAction::triggered, unstarted, [this](bool hides) {
        SetHidesUnstarted(hides);
        m_context.Refresh();
    });
    AddFlag(menu, Untranslated("&Record the day of completion"),
            &COrvoDesktopOptions::GetTodoMarkCompletionDate,
            &COrvoDesktopOptions::SetTodoMarkCompletionDate);
}

void ToDoMenu::PutPartsInto(QMenu& menu) {
    PartCommands& parts = m_commands.parts;
    m_narrow = menu.addAction(Text("Only this to-do and its par&ts"));
    m_narrow->setCheckable(true);
    m_narrow->setShortcut(QKeySequence("Ctrl+T"));
    QObject::connect(m_narrow, &QAction::triggered, m_narrow, [&parts] { parts.NarrowOrWiden(); });
    QAction* put = menu.addAction(Text("&Make part of another..."));
    put->setShortcut(QKeySequence("Ctrl+Shift+P"));
    QObject::connect(put, &QAction::triggered, put, [&parts] { parts.PutSelected(); });
    QAction* takeOut = menu.addAction(Text("Take &out of its whole"));
    QObject::connect(takeOut, &QAction::triggered, takeOut, [&parts] { parts.TakeSelectedOut(); });
    m_partActions = {m_narrow, put, takeOut};
}

void ToDoMenu::Enable(int selected) {
    for (QAction* action : m_partActions) action->setEnabled(selected > 0);
    const bool isNarrowed = m_commands.parts.IsNarrowed();
    m_narrow->setChecked(isNarrowed);
    m_narrow->setEnabled(m_context.Frame().IsShowingToDos() && (isNarrowed || selected == 1));
}

void ToDoMenu::AddFlag(QMenu& menu, const char* text, int (COrvoDesktopOptions::*get)() const,
                       void (COrvoDesktopOptions::*set)(int)) {
    QAction* action = menu.addAction(Text(text));
    action->setCheckable(true);
    action->setChecked((m_context.Options().*get)() != 0);
    QObject::connect(action, &QAction::triggered, action, [this, set](bool isOn) {
        m_commands.options.Change(
            [set, isOn](COrvoDesktopOptions& options) { (options.*set)(isOn ? 1 : 0); });
    });
}

}  // namespace orvo::desktop
