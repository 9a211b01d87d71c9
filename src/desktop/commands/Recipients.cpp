// To whom a mail goes that is written to people and groups.
// SPDX-License-Identifier: MIT
#include <desktop/commands/Mail.h>
#include <desktop/commands/Recipients.h>
#include <desktop/texts/Texts.h>
#include <people/PersonReader.h>

namespace orvo::desktop {

Recipients::Recipients(const CommandContext& context) : m_context(context) {}

bool Recipients::AddAddress(const QString& address) {
    if (address.isEmpty()) return false;
    if (m_known.insert(address.toLower()).second) m_addresses.push_back(address);
    return true;
}

void Recipients::Add(const CAddressRecord& record) {
    CAddressTable& table = m_context.Session().Addresses();
    std::string loss;
    const Person person = ReadPerson(record, table, loss);
    if (!person.isGroup) {
        AddAddress(MailAddressOf(record, table));
        return;
    }
    if (!m_groupsSeen.insert(record.GetId()).second) return;
    std::vector<std::string> members;
    for (const Detail& detail : person.details) {
        if (detail.kind == DetailKind::Member) members.push_back(detail.uri);
    }
    AddMembers(members);
}

void Recipients::AddMembers(const std::vector<std::string>& members) {
    constexpr std::string_view kMail = "mailto:";
    CAddressTable& table = m_context.Session().Addresses();
    GroupIndex& groups = m_context.Session().Groups();
    const Disclosure disclosure(m_context.Options());
    for (const std::string& member : members) {
        if (member.starts_with(kMail)) {
            AddAddress(FromUtf8(member.substr(kMail.size())));
            continue;
        }
        while (!groups.Read(std::chrono::seconds(1))) {
        }
        const std::optional<std::int64_t> id = groups.PersonOf(member);
        CAddressRecord person(table);
        const bool isThere = id && table.Find(*id, person) == 0;
        if (isThere && disclosure.Of(WayOut::Mail, person) != Told::Whole) {
            ++m_leftOut;
        } else if (isThere && groups.Groups().count(*id) != 0) {
            Add(person);
        } else if (!isThere || !AddAddress(MailAddressOf(person, table))) {
            ++m_lacking;
        }
    }
}

}  // namespace orvo::desktop
