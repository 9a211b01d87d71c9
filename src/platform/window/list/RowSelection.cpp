// Which rows of a list are selected: one bit a row.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <bit>

#include <platform/window/list/RowSelection.h>

namespace orvo {

namespace {

constexpr int kBits = 64;
constexpr std::uint64_t kAll = ~std::uint64_t{0};

std::size_t WordOf(int row) {
    return static_cast<std::size_t>(row / kBits);
}

std::uint64_t BitOf(int row) {
    return std::uint64_t{1} << (row % kBits);
}

// The bits from `row` on, within its word.
std::uint64_t From(int row) {
    return kAll << (row % kBits);
}

}  // namespace

RowSelection::RowSelection(int size)
    : m_words(static_cast<std::size_t>((size + kBits - 1) / kBits)), m_size(size) {}

bool RowSelection::Has(int row) const {
    return (m_words[WordOf(row)] & BitOf(row)) != 0;
}

int RowSelection::SetRange(int first, int last, bool selected) {
    int changed = 0;
    for (std::size_t word = WordOf(first); word <= WordOf(last) && first <= last; ++word) {
        Word mask = kAll;
        if (word == WordOf(first)) mask &= From(first);
        if (word == WordOf(last)) mask &= BitOf(last) | (BitOf(last) - 1);
        const Word before = m_words[word];
        m_words[word] = selected ? before | mask : before & ~mask;
        changed += std::popcount(before ^ m_words[word]);
    }
    m_count += selected ? changed : -changed;
    return changed;
}

int RowSelection::Next(int after, bool wanted) const {
    const int start = after + 1;
    if (start < 0 || start >= m_size) return -1;
    Word mask = From(start);
    for (std::size_t word = WordOf(start); word < m_words.size(); ++word, mask = kAll) {
        const Word found = (wanted ? m_words[word] : ~m_words[word]) & mask;
        if (found == 0) continue;
        const int row = static_cast<int>(word) * kBits + std::countr_zero(found);
        return row < m_size ? row : -1;
    }
    return -1;
}

void RowSelection::Insert(int row) {
    if (m_size % kBits == 0) m_words.push_back(0);
    ++m_size;
    const Word kept = BitOf(row) - 1;
    Word carry = 0;
    for (std::size_t word = WordOf(row); word < m_words.size(); ++word) {
        const Word before = m_words[word];
        const Word stays = word == WordOf(row) ? before & kept : 0;
        m_words[word] = stays | (before & ~(word == WordOf(row) ? kept : 0)) << 1 | carry;
        carry = before >> (kBits - 1);
        if (m_count == 0) break;
    }
}

void RowSelection::Erase(int row) {
    if (Has(row)) --m_count;
    const Word kept = BitOf(row) - 1;
    for (std::size_t word = WordOf(row); word < m_words.size(); ++word) {
        const Word carry = word + 1 < m_words.size() ? m_words[word + 1] << (kBits - 1) : 0;
        const Word stays = word == WordOf(row) ? m_words[word] & kept : 0;
        const Word moves = word == WordOf(row) ? (m_words[word] >> 1) & ~kept : m_words[word] >> 1;
        m_words[word] = stays | moves | carry;
    }
    --m_size;
    m_words.resize(static_cast<std::size_t>((m_size + kBits - 1) / kBits));
}

void RowSelection::Clear() {
    *this = {};
}

}  // namespace orvo
