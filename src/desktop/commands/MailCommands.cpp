// Mail to the people who are selected, and their cards by mail.
// SPDX-License-Identifier: MIT
#include <desktop/commands/Mail.h>
#include <desktop/commands/MailCommands.h>
#include <desktop/commands/Recipients.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {

std::vector<CAddressRecord*> MailCommands::Selected() {
    std::vector<CAddressRecord*> records;
    for (CBaseRecord* record : m_context.Frame().Entries().SelectedRecords(WayOut::Mail)) {
        records.push_back(static_cast<CAddressRecord*>(record));
    }
    return records;
}

void MailCommands::SendMailToSelected() {
    Recipients recipients(m_context);
    const std::vector<CAddressRecord*> records = Selected();
    for (const CAddressRecord* record : records) recipients.Add(*record);
    m_context.SayLeftOut(m_context.Frame().Entries().LeftOutOfSelection(WayOut::Mail) +
                         recipients.LeftOut());
    if (records.empty()) return;
    if (recipients.Addresses().empty()) {
        return m_context.Refuse(Text("None of the selected entries has a mail address."));
    }
    if (recipients.Lacking() > 0) {
        m_context.Say(CountText("%1 member of the group has no mail address.",
                                "%1 members of the group have no mail address.",
                                recipients.Lacking()));
    }
    m_context.Refuse(SendMailTo(recipients.Addresses()));
}

void MailCommands::SendSelectedAsCards() {
    const std::vector<CAddressRecord*> records = Selected();
    m_context.SayLeftOut(m_context.Frame().Entries().LeftOutOfSelection(WayOut::Mail));
    if (!records.empty()) {
        m_context.Refuse(SendAsCards(records, m_context.Session().Addresses()));
    }
}

}  // namespace orvo::desktop
