// What the details pane shows of the views.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>

#include <desktop/commands/CommandContext.h>
#include <desktop/details/DetailsPane.h>

namespace orvo::desktop {

class ShownDetails {
public:
    // The context outlives it.
    explicit ShownDetails(const CommandContext& context) : m_context(context) {}

    // Adds the pane, hidden, to the window.
    void PutInto(QMainWindow& window);
    // Shows the entry that is selected, where the pane is visible.
    void Show();

    // For a menu: to show the pane, and to put it below the views.
    QList<QAction*> Actions();

private:
    void ShowAddress(CAddressRecord& record);
    void ShowToDo(const CToDoRecord& record);
    QString CategoryOf(const CBaseRecord& record) const;

    const CommandContext& m_context;
    DetailsPane m_pane;
    QAction* m_below = nullptr;  // Qt's
};

}  // namespace orvo::desktop
