// The window as plug-ins see it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenuBar>
#include <memory>

#include <desktop/commands/CommandContext.h>
#include <desktop/plugins/Plugins.h>

namespace orvo::desktop {

class PluginCommands {
public:
    // The context outlives the commands.
    explicit PluginCommands(CommandContext& context) : m_context(context) {}

    // Lets them add their entries to the menus of the bar, which outlives the commands.
    void Load(QMenuBar& bar);

private:
    CommandContext& m_context;
    std::unique_ptr<Plugins> m_plugins;
};

}  // namespace orvo::desktop
