// What the details pane shows of the views.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>

#include <desktop/commands/GroupCommands.h>
#include <desktop/details/DetailsPane.h>

namespace orvo::desktop {

class ShownDetails {
public:
    // Both outlive it.
    ShownDetails(const CommandContext& context, GroupCommands& groups)
        : m_context(context), m_groups(groups) {}

    // Adds the pane, hidden, to the window.
    void PutInto(QMainWindow& window);
    // Shows the entry that is selected, where the pane is visible.
    void Show();

    // Below the views where the window is narrower, and hidden where there is no room for it; once
    // there is, it is as the user has left it.
    void FitInto(int width) { m_pane.FitInto(width); }

    // For a menu: to show the pane, and to put it below the views.
    QList<QAction*> Actions();

private:
    void ShowAddress(CAddressRecord& record);
    void AddMembers(PageOfPerson& page) const;
    void AddGroups(std::int64_t person, PageOfPerson& page) const;
    void ShowToDo(const CToDoRecord& record);
    QString CategoryOf(const CBaseRecord& record) const;

    const CommandContext& m_context;
    GroupCommands& m_groups;
    DetailsPane m_pane;
    QAction* m_below = nullptr;  // Qt's
};

}  // namespace orvo::desktop
