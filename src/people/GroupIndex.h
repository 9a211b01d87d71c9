// Which groups of people there are, and who is in them.
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include <contracts/RecordStore.h>

namespace orvo {

struct PersonGroup {
    std::string name;
    bool isPrivate = false;
    bool isMailList = false;           // its members are mail addresses
    std::vector<std::string> members;  // addresses such as "urn:uuid:..." or "mailto:a@b"
};

// Reads all addresses of a table once, and again those that have changed; groups that lie in the
// trash or the archive aren't there. A member is a person by the UID of his card or by one of his
// mail addresses.
class GroupIndex {
public:
    // The table outlives the index.
    explicit GroupIndex(CAddressTable& table) : m_table(table) {}

    // Goes on where it ended, for about that time.
    // Returns:  true once all is read; what is told before that may lack some.
    bool Read(std::chrono::milliseconds time);
    bool IsWhole() const { return m_isWhole && m_changed.empty(); }

    // The record of that id isn't as it was; all records.
    void Forget(std::int64_t id);
    void Clear();

    // By the ids of their records.
    const std::map<std::int64_t, PersonGroup>& Groups() const { return m_groups; }
    bool IsMember(std::int64_t group, std::int64_t person) const;
    // By rising id.
    std::vector<std::int64_t> GroupsOf(std::int64_t person) const;
    // The first of several that answer to the address; nothing where nobody is known by it.
    std::optional<std::int64_t> PersonOf(std::string_view member) const;

private:
    struct Key {
        std::size_t hash;
        std::int64_t id;
        auto operator<=>(const Key&) const = default;
    };

    void Take(const CAddressRecord& record);
    bool TakeGroup(const CAddressRecord& record, const std::string& source);
    void TakeChanged();
    void AddKey(std::string_view member, std::int64_t id);
    const std::unordered_set<std::int64_t>& PeopleOf(std::int64_t group) const;

    CAddressTable& m_table;
    std::unique_ptr<CAddressIterator> m_walk;  // while records are read for the first time
    bool m_isWhole = false;
    std::unordered_set<std::int64_t> m_changed;
    std::vector<Key> m_keys;  // sorted once all are read
    std::map<std::int64_t, PersonGroup> m_groups;
    // Of the groups that were asked for.
    mutable std::map<std::int64_t, std::unordered_set<std::int64_t>> m_people;
};

}  // namespace orvo
