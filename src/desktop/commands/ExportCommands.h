// Export from the store.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <unordered_set>

#include <desktop/commands/CommandContext.h>

namespace orvo::desktop {

class ExportCommands {
public:
    // The context outlives the commands.
    explicit ExportCommands(CommandContext& context) : m_context(context) {}

    // Exports all entries of the kind that is shown, or those that are selected, to a file that the
    // user chooses.
    void ChooseFile();
    // The same of birthdays, as a calendar that has each of them every year.
    void ChooseCalendar();

private:
    void Export(const std::string& file, bool isSelectionOnly);
    void ExportCalendar(const std::string& file, bool isSelectionOnly);
    std::unordered_set<std::int64_t> SelectedIds() const;

    CommandContext& m_context;
};

}  // namespace orvo::desktop
