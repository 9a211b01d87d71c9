// Mail to the people who are selected, and their cards by mail.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>
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
    // `send` returns an empty text on success, else why not.
    void Send(const std::function<QString(const std::vector<CAddressRecord*>&)>& send);

    CommandContext& m_context;
};

}  // namespace orvo::desktop
