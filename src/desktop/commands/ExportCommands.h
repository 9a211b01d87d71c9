// Export from the store.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <desktop/commands/CommandContext.h>

namespace orvo::desktop {

class ExportCommands {
public:
    // The context outlives the commands.
    explicit ExportCommands(CommandContext& context) : m_context(context) {}

    // Exports all entries of the kind that is shown, or those that are selected, to a file that the
    // user chooses.
    void ChooseFile();

private:
    void Export(const std::string& file, bool isSelectionOnly);

    CommandContext& m_context;
};

}  // namespace orvo::desktop
