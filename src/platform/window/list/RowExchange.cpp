// Where rows of a list stand after some have gone and others have come.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <platform/window/list/RowExchange.h>

namespace orvo {

RowExchange::RowExchange(int count, const std::vector<int>& going,
                         const std::vector<ComingRow>& coming)
    : m_count(count), m_going(going), m_coming(coming), m_first(count), m_last(0) {
    if (!going.empty()) {
        m_first = going.front();
        m_last = going.back() + 1;
    }
    if (!coming.empty()) {
        m_first = std::min(m_first, coming.front().before);
        m_last = std::max(m_last, coming.back().before);
    }
    for (std::size_t i = 0; i < coming.size(); ++i) {
        if (coming[i].from >= 0) m_moved.emplace_back(coming[i].from, i);
    }
    std::sort(m_moved.begin(), m_moved.end());
}

int RowExchange::CountAfter() const {
    return StayingBefore(m_count) + static_cast<int>(m_coming.size());
}

bool RowExchange::IsGoing(int row) const {
    return std::binary_search(m_going.begin(), m_going.end(), row);
}

int RowExchange::StayingBefore(int row) const {
    const auto gone = std::lower_bound(m_going.begin(), m_going.end(), row) - m_going.begin();
    return row - static_cast<int>(gone);
}

int RowExchange::PlaceOf(int row) const {
    if (row < 0 || row >= m_count) return -1;
    if (IsGoing(row)) {
        const auto moved = std::lower_bound(m_moved.begin(), m_moved.end(), std::pair(row, 0UL));
        const bool isThere = moved != m_moved.end() && moved->first == row;
        return isThere ? PlaceOfComing(moved->second) : -1;
    }
    const auto behind =
        std::upper_bound(m_coming.begin(), m_coming.end(), row,
                         [](int each, const ComingRow& come) { return each < come.before; });
    return StayingBefore(row) + static_cast<int>(behind - m_coming.begin());
}

int RowExchange::PlaceOfStaying(int row) const {
    if (row < 0) return -1;
    while (row < m_count && IsGoing(row)) ++row;
    return row < m_count ? PlaceOf(row) : CountAfter() - 1;
}

}  // namespace orvo
