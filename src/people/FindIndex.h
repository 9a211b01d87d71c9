// The texts of many records, kept so that those that match are found at each key that is typed.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include <people/FindText.h>

namespace orvo {

// Each record's text stands in a slot, all behind each other in one block of memory. A slot is good
// until Version() changes; the text of a record that was forgotten still takes room until Clear.
class FindIndex {
public:
    using Slot = std::uint32_t;

    // Where the text of the record of that id stands; nothing where it isn't known.
    std::optional<Slot> SlotOf(std::int64_t id) const;
    // Requires: the text of that record isn't known.
    Slot Add(std::int64_t id, const FindText& text);

    // The text of the record isn't as it was; of all records.
    void Forget(std::int64_t id);
    void Clear();
    std::uint64_t Version() const { return m_version; }

    // Whether each slot matches, in their order.
    std::vector<bool> Matching(const FindQuery& query) const;
    // The same where only the slots of `among` can, as those that matched a query that this one is
    // within.
    std::vector<bool> Matching(const FindQuery& query, const std::vector<bool>& among) const;

private:
    // One text for each slot, which ends where the next one begins.
    struct Block {
        std::string texts;
        std::vector<std::size_t> ends;

        void Add(const std::string& text);
        std::string_view TextOf(std::size_t slot) const;
    };

    bool Matches(const FindQuery& query, std::size_t slot) const;
    // Marks the slots whose texts hold the word.
    static void Mark(const Block& block, std::string_view word, std::vector<bool>& marks);

    Block m_folded;
    Block m_numbers;
    std::unordered_map<std::int64_t, Slot> m_slots;
    std::uint64_t m_version = 0;
};

}  // namespace orvo
