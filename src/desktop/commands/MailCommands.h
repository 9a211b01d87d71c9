// Mail to the people who are selected, and their cards by mail.
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <desktop/commands/CommandContext.h>

namespace orvo::desktop {

// Private entries that may not go out by mail are left out, which is said.
class MailCommands {
public:
    // The context outlives the commands.
    explicit MailCommands(CommandContext& context) : m_context(context) {}

    void SendMailToSelected();
    void SendSelectedAsCards();

private:
    std::vector<CAddressRecord*> Selected();

    CommandContext& m_context;
};

}  // namespace orvo::desktop
