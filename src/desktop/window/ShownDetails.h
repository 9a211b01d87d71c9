// What the details pane shows of the views.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>

#include <desktop/commands/DesktopCommands.h>
#include <desktop/details/DetailsPane.h>
#include <desktop/parts/PartPanel.h>

namespace orvo::desktop {

class ShownDetails {
public:
    // All of it outlives it.
    ShownDetails(const CommandContext& context, DesktopCommands& commands)
        : m_context(context),
          m_groups(commands.groups),
          m_parts(commands.parts),
          m_forms(commands.forms) {}

    // Adds the pane, hidden, to the window.
    void PutInto(QMainWindow& window);
    // Shows the entry that is selected, where the pane is visible.
    void Show();
    // Saves what is being typed.
    void Finish() { m_panel->Leave(); }

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
    void ShowParts(std::int64_t toDo);
    std::optional<EntryLink> WholeOf(const CToDoRecord& record) const;
    QString CategoryOf(const CBaseRecord& record) const;

    const CommandContext& m_context;
    GroupCommands& m_groups;
    PartCommands& m_parts;
    FormCommands& m_forms;
    DetailsPane m_pane;
    PartPanel* m_panel = nullptr;  // the pane's
    QAction* m_below = nullptr;    // Qt's
};

}  // namespace orvo::desktop
