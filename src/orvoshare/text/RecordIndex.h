// The records of a view's rows, found by their ids.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include <contracts/Records.h>
#include <platform/Export.h>

namespace orvo {

// Eight bytes a record. The records are the view's.
class ORVO_API RecordIndex {
public:
    // Takes no time to speak of where ids come in their order, as from a table.
    void Add(CBaseRecord* record);
    // Requires: the records still live. Null, and one that isn't there, is passed over.
    void Remove(const CBaseRecord* record);
    void Remove(const std::vector<CBaseRecord*>& records);
    void Clear();

    // Null where no row is of that id.
    CBaseRecord* Find(std::int64_t id);

private:
    void Sort();
    std::vector<CBaseRecord*>::iterator PlaceOf(std::int64_t id);

    std::vector<CBaseRecord*> m_records;
    std::size_t m_sorted = 0;  // so many stand in the order of their ids
};

}  // namespace orvo
