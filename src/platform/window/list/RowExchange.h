// Where rows of a list stand after some have gone and others have come.
// SPDX-License-Identifier: MIT
#pragma once

#include <utility>
#include <vector>

#include <platform/Export.h>
#include <platform/window/list/ListPeer.h>

namespace orvo {

// The numbers are those of before, but for what it returns.
class ORVO_API RowExchange {
public:
    // As for ListPeer::ExchangeRows; both outlive it.
    RowExchange(int count, const std::vector<int>& going, const std::vector<ComingRow>& coming);

    int Count() const { return m_count; }
    int CountAfter() const;
    const std::vector<int>& Going() const { return m_going; }
    const std::vector<ComingRow>& Coming() const { return m_coming; }

    // No row before the first or from the last on changes but by its number.
    int First() const { return m_first; }
    int Last() const { return m_last; }

    // How many rows before that one stay where they were among each other.
    int StayingBefore(int row) const;
    // Where the row stands afterwards; -1 where it is gone.
    int PlaceOf(int row) const;
    // The place of the row, or of the next one that didn't go or move; else of the last one.
    int PlaceOfStaying(int row) const;
    // Of the coming row of that number.
    int PlaceOfComing(std::size_t index) const {
        return StayingBefore(m_coming[index].before) + static_cast<int>(index);
    }

private:
    bool IsGoing(int row) const;

    int m_count;
    const std::vector<int>& m_going;
    const std::vector<ComingRow>& m_coming;
    std::vector<std::pair<int, std::size_t>> m_moved;  // from where, and the coming row
    int m_first;
    int m_last;
};

}  // namespace orvo
