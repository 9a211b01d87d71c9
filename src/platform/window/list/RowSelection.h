// Which rows of a list are selected: one bit a row.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include <platform/Export.h>

namespace orvo {

// Ranges cost one step for 64 rows. Row numbers must lie within the size.
class ORVO_API RowSelection {
public:
    RowSelection() = default;
    explicit RowSelection(int size);  // none is selected

    int Size() const { return m_size; }
    int Count() const { return m_count; }

    bool Has(int row) const;
    int SetRange(int first, int last, bool selected);  // returns how many rows changed

    // The first row after `after` that is as wanted; -1 where there is none.
    int Next(int after, bool wanted = true) const;

    void Insert(int row);  // not selected; the size is a place, too
    void Erase(int row);
    void Clear();  // no rows are left

private:
    using Word = std::uint64_t;

    std::vector<Word> m_words;
    int m_size = 0;
    int m_count = 0;
};

}  // namespace orvo
