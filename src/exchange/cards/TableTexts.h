// The phone labels and categories of a table, as cards and to-dos name them.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <contracts/RecordStore.h>
#include <exchange/cards/CardFields.h>
#include <exchange/lines/Origin.h>

namespace orvo {

// The labels as they are stored: cards say the same in every language of the user.
class PhoneLabels {
public:
    explicit PhoneLabels(const CAddressTable& table);

    // The label for a number of that kind; `own` is the text of a label that one of our cards
    // names, and comes first where the table has it.
    long IdOf(PhoneKind kind, std::string_view own) const;

    // The kind that the label's text names; for a label that was renamed, the kind that a new table
    // has there; nothing for one that was added.
    std::optional<PhoneKind> KindOf(long id) const;

    // True where the label's text is the name of its kind.
    bool IsStandard(long id) const;
    const std::string& TextOf(long id) const;

private:
    std::optional<long> Find(std::string_view text) const;

    std::vector<std::string> m_texts;  // UTF-8
};

// The place in the list of the name that the record's category came from, or the list's size.
std::size_t PlaceOf(const Origin& origin, const std::vector<ListedCategory>& names);

class CategoryNames {
public:
    explicit CategoryNames(CCategoryMgr& manager) : m_manager(manager) {}

    // Takes the first of the names that the table has or can take, and notes its index and its
    // place in the list; kNoCategory where there is none.
    void Choose(const std::vector<ListedCategory>& names, Origin& origin);
    // The same without taking anything new into the table.
    void Find(const std::vector<ListedCategory>& names, Origin& origin);

    // The name of a record's category; empty for a record in none.
    std::string NameOf(int index);

private:
    std::optional<int> IndexOf(const std::string& name, bool add);
    void Note(const std::vector<ListedCategory>& names, bool add, Origin& origin);
    // The category of that name as the store has it after adding it; null where there is no room.
    CCategory* Added(std::string_view name);

    CCategoryMgr& m_manager;
    std::unordered_map<std::string, int> m_known;
};

}  // namespace orvo
