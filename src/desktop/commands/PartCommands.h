// To-dos and their parts: what the details pane does to them, and the list of only one of them.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include <desktop/commands/CommandContext.h>
#include <desktop/parts/PartEdits.h>

namespace orvo::desktop {

// For trees of parts of the store that is open. All of the command context outlives it.
PartsContext MakePartsContext(const CommandContext& context);

class PartCommands {
public:
    // The context outlives the commands.
    explicit PartCommands(CommandContext& context);

    // For trees of parts; it lives as long as the commands.
    const PartsContext& Parts() const { return m_parts; }

    // Asks where the to-do, which is to be completed, has parts that are open.
    // Returns:  false where the user doesn't want that, or all of it has been done here.
    bool MayComplete(const CToDoRecord& record) const;

    // Makes the selected to-dos parts of one that the user chooses, or of none.
    void PutSelected();
    void TakeSelectedOut();

    // Only the selected to-do and its parts show; all do again where only one's did.
    void NarrowOrWiden();
    bool IsNarrowed() const { return m_narrowed != 0; }
    // Shows all again where the to-do is gone.
    void LookAfterNarrowed();

private:
    void Narrow(std::int64_t id);
    std::vector<std::int64_t> Selected() const;
    void Put(const QString& name, const std::vector<std::int64_t>& ids, std::int64_t whole) const;

    CommandContext& m_context;
    PartsContext m_parts;
    std::int64_t m_narrowed = 0;  // the to-do whose parts show; 0 for all
};

}  // namespace orvo::desktop
