// The texts of many records, kept so that those that match are found at each key that is typed.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstring>

#include <people/FindIndex.h>

namespace orvo {

void FindIndex::Block::Add(const std::string& text) {
    texts += text;
    ends.push_back(texts.size());
}

std::string_view FindIndex::Block::TextOf(std::size_t slot) const {
    const std::size_t begin = slot == 0 ? 0 : ends[slot - 1];
    return std::string_view(texts).substr(begin, ends[slot] - begin);
}

std::optional<FindIndex::Slot> FindIndex::SlotOf(std::int64_t id) const {
    const auto found = m_slots.find(id);
    if (found == m_slots.end()) return std::nullopt;
    return found->second;
}

FindIndex::Slot FindIndex::Add(std::int64_t id, const FindText& text) {
    const auto slot = static_cast<Slot>(m_folded.ends.size());
    m_folded.Add(text.folded);
    m_numbers.Add(text.numbers);
    m_slots.emplace(id, slot);
    return slot;
}

void FindIndex::Forget(std::int64_t id) {
    if (m_slots.erase(id) != 0) ++m_version;
}

void FindIndex::Clear() {
    if (m_folded.ends.empty()) return;
    m_folded = {};
    m_numbers = {};
    m_slots = {};
    ++m_version;
}

bool FindIndex::Matches(const FindQuery& query, std::size_t slot) const {
    return query.Matches(m_folded.TextOf(slot), m_numbers.TextOf(slot));
}

std::vector<bool> FindIndex::Matching(const FindQuery& query) const {
    std::vector<bool> marks(m_folded.ends.size(), query.IsEmpty());
    if (query.IsEmpty()) return marks;
    // The longest word is found in the fewest texts.
    const auto& words = query.Words();
    const auto& word = *std::max_element(
        words.begin(), words.end(), [](const FindQuery::Word& one, const FindQuery::Word& other) {
            return one.folded.size() < other.folded.size();
        });
    Mark(query, m_folded, word.folded, marks);
    if (!word.digits.empty()) Mark(query, m_numbers, word.digits, marks);
    return marks;
}

// Goes through the block as a whole: no word reaches from one text into the next.
void FindIndex::Mark(const FindQuery& query, const Block& block, std::string_view word,
                     std::vector<bool>& marks) const {
    const char* const begin = block.texts.data();
    const bool isAll = query.Words().size() == 1;
    std::size_t slot = 0;
    for (std::size_t from = 0; from < block.texts.size(); from = block.ends[slot]) {
        const void* found =
            memmem(begin + from, block.texts.size() - from, word.data(), word.size());
        if (!found) return;
        const auto place = static_cast<std::size_t>(static_cast<const char*>(found) - begin);
        while (block.ends[slot] <= place) ++slot;
        if (!marks[slot]) marks[slot] = isAll || Matches(query, slot);
    }
}

std::vector<bool> FindIndex::Matching(const FindQuery& query,
                                      const std::vector<bool>& among) const {
    std::vector<bool> marks(m_folded.ends.size());
    const std::size_t count = std::min(among.size(), marks.size());
    for (std::size_t slot = 0; slot < count; ++slot) {
        marks[slot] = among[slot] && Matches(query, slot);
    }
    return marks;
}

}  // namespace orvo
