// The commands of the menu of to-dos behind their orders: parts of to-dos, and which ones show.
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <vector>

#include <desktop/commands/DesktopCommands.h>

namespace orvo::desktop {

class ToDoMenu {
public:
    // Context and commands outlive it.
    ToDoMenu(const CommandContext& context, DesktopCommands& commands)
        : m_context(context), m_commands(commands) {}

    // Adds them at the end of the menu.
    void PutInto(QMenu& menu);
    // Those that work on what is selected.
    const std::vector<QAction*>& Actions() const { return m_partActions; }
    // Shows what can be done with so many that are selected; none in another view.
    void Enable(int selected);

private:
    void PutPartsInto(QMenu& menu);
    void AddFlag(QMenu& menu, const char* text, int (COrvoDesktopOptions::*get)() const,
                 void (COrvoDesktopOptions::*set)(int));

    const CommandContext& m_context;
    DesktopCommands& m_commands;
    QAction* m_narrow = nullptr;  // Qt's, as are all
    std::vector<QAction*> m_partActions;
};

}  // namespace orvo::desktop
