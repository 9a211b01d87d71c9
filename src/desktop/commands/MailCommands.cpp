// Mail to the people who are selected, and their cards by mail.
// SPDX-License-Identifier: MIT
#include <desktop/commands/Mail.h>
#include <desktop/commands/MailCommands.h>

namespace orvo::desktop {

void MailCommands::Send(const std::function<QString(const std::vector<CAddressRecord*>&)>& send) {
    std::vector<CAddressRecord*> records;
    ShownEntries& entries = m_context.Frame().Entries();
    for (CBaseRecord* record : entries.SelectedRecords(WayOut::Mail)) {
        records.push_back(static_cast<CAddressRecord*>(record));
    }
    m_context.SayLeftOut(entries.LeftOutOfSelection(WayOut::Mail));
    if (!records.empty()) m_context.Refuse(send(records));
}

void MailCommands::SendMailToSelected() {
    Send([this](const std::vector<CAddressRecord*>& records) {
        return SendMailTo(records, m_context.Session().Addresses());
    });
}

void MailCommands::SendSelectedAsCards() {
    Send([this](const std::vector<CAddressRecord*>& records) {
        return SendAsCards(records, m_context.Session().Addresses());
    });
}

}  // namespace orvo::desktop
