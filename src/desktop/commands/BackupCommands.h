// Backing the store up into a file, and restoring it from one.
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <string>

#include <desktop/commands/CommandContext.h>

namespace orvo::desktop {

class BackupCommands {
public:
    // The context outlives the commands.
    explicit BackupCommands(CommandContext& context) : m_context(context) {}

    // Adds the commands to a menu, with a line below them.
    void PutInto(QMenu& menu);

    // Says what became of it; the window ends where the store must be opened again.
    void RestoreFrom(const std::string& backup);

private:
    // Each asks for the file.
    void BackUp();
    void Restore();

    CommandContext& m_context;
};

}  // namespace orvo::desktop
