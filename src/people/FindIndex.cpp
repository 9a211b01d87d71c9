// The texts of many records, kept so that those that match are found at each key that is typed.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <people/ByteSearch.h>
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
    // A walk through all texts takes as long as a look at so large a part of them alone.
    constexpr std::ptrdiff_t kFewAmong = 8;
    std::vector<bool> marks(m_folded.ends.size(), true);
    // The longest word is found in the fewest texts.
    std::vector<FindQuery::Word> words = query.Words();
    std::stable_sort(words.begin(), words.end(), [](const auto& one, const auto& other) {
        return one.folded.size() > other.folded.size();
    });
    for (const FindQuery::Word& word : words) {
        const auto left = std::count(marks.begin(), marks.end(), true);
        if (left < static_cast<std::ptrdiff_t>(marks.size()) / kFewAmong) {
            return Matching(query, marks);
        }
        std::vector<bool> holding(marks.size());
        Mark(m_folded, word.folded, holding);
        if (!word.digits.empty()) Mark(m_numbers, word.digits, holding);
        for (std::size_t slot = 0; slot < marks.size(); ++slot) {
            marks[slot] = marks[slot] && holding[slot];
        }
    }
    return marks;
}

// Goes through the block as a whole: no word reaches from one text into the next.
void FindIndex::Mark(const Block& block, std::string_view word, std::vector<bool>& marks) {
    const std::string_view texts = block.texts;
    std::size_t slot = 0;
    for (std::size_t from = 0; from < texts.size(); from = block.ends[slot]) {
        const std::size_t place = FindBytes(texts.substr(from), word);
        if (place == std::string_view::npos) return;
        while (block.ends[slot] <= from + place) ++slot;
        marks[slot] = true;
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
