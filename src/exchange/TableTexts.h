// The phone labels and categories of a table, as cards and to-dos name them.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <contracts/RecordStore.h>
#include <exchange/CardFields.h>

namespace orvo {

// Text of the system's code page as UTF-8.
std::string ToUtf8(const CString& text);

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

class CategoryNames {
public:
    explicit CategoryNames(CCategoryMgr& manager) : m_manager(manager) {}

    // The index of the first of the names that the table has, or with `add` can take; kNoCategory
    // where there is none. `place` is set to the name's place in the list, or to its size.
    int IndexOf(const std::vector<ListedCategory>& names, bool add, std::size_t& place);

    // The name of a record's category; empty for a record in none.
    std::string NameOf(int index);

private:
    std::optional<int> Find(const std::string& name, bool add);

    CCategoryMgr& m_manager;
    std::unordered_map<std::string, int> m_known;
};

}  // namespace orvo
