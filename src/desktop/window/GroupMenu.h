// The commands of a menu that put the selected people into groups, and take them out.
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <vector>

#include <desktop/commands/GroupCommands.h>

namespace orvo::desktop {

class GroupMenu {
public:
    // The commands outlive it.
    explicit GroupMenu(GroupCommands& groups) : m_groups(groups) {}

    // Adds them at the end of the menu.
    void PutInto(QMenu& menu);
    // Those that can be used where people are selected.
    std::vector<QAction*> Actions() const;
    void Enable(bool arePeopleSelected);

private:
    GroupCommands& m_groups;
    QMenu* m_addToGroup = nullptr;  // both Qt's
    QAction* m_takeOut = nullptr;
};

}  // namespace orvo::desktop
