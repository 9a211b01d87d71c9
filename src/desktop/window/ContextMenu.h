// The menu of what is selected, where the views are asked for one.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QContextMenuEvent>
#include <QPoint>
#include <vector>

#include <desktop/commands/CommandContext.h>

namespace orvo::desktop {

class ContextMenu {
public:
    // The context outlives it.
    explicit ContextMenu(const CommandContext& context) : m_context(context) {}

    // From now on Shift+F10 asks for it as the menu key does.
    void AddKey();
    // Opens with these entries; nothing where something else than a view was asked.
    void Open(const QContextMenuEvent& event, const std::vector<QAction*>& actions) const;

private:
    QPoint Place() const;

    const CommandContext& m_context;
};

}  // namespace orvo::desktop
