// To whom a mail goes that is written to people and groups.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <set>
#include <vector>

#include <desktop/commands/CommandContext.h>

namespace orvo::desktop {

class Recipients {
public:
    // The context outlives it.
    explicit Recipients(const CommandContext& context);

    // The first mail address of a person; of a group those of its members, groups among them too.
    void Add(const CAddressRecord& record);

    // Each once, in the order in which they came.
    const std::vector<QString>& Addresses() const { return m_addresses; }
    // Members of groups that may not be written to, as they are private.
    int LeftOut() const { return m_leftOut; }
    // Members of groups who have no mail address, or aren't in the store.
    int Lacking() const { return m_lacking; }

private:
    void AddMembers(const std::vector<std::string>& members);
    bool AddAddress(const QString& address);

    const CommandContext& m_context;
    std::vector<QString> m_addresses;
    std::set<QString> m_known;            // in lower case
    std::set<std::int64_t> m_groupsSeen;  // one may be its own member
    int m_leftOut = 0;
    int m_lacking = 0;
};

}  // namespace orvo::desktop
