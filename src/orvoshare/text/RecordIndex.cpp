// The records of a view's rows, found by their ids.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <unordered_set>
#include <utility>

#include <orvoshare/text/RecordIndex.h>

namespace orvo {

void RecordIndex::Add(CBaseRecord* record) {
    const bool isBehind = m_sorted == m_records.size() &&
                          (m_records.empty() || m_records.back()->GetId() < record->GetId());
    m_records.push_back(record);
    if (isBehind) ++m_sorted;
}

void RecordIndex::Remove(const CBaseRecord* record) {
    if (!record) return;
    Sort();
    const auto place = PlaceOf(record->GetId());
    if (place == m_records.end() || *place != record) return;
    m_records.erase(place);
    m_sorted = m_records.size();
}

void RecordIndex::Remove(const std::vector<CBaseRecord*>& records) {
    if (records.empty()) return;
    const std::unordered_set<CBaseRecord*> going(records.begin(), records.end());
    Sort();
    std::erase_if(m_records, [&](CBaseRecord* each) { return going.count(each) != 0; });
    m_sorted = m_records.size();
}

void RecordIndex::Clear() {
    m_records.clear();
    m_sorted = 0;
}

CBaseRecord* RecordIndex::Find(std::int64_t id) {
    Sort();
    const auto place = PlaceOf(id);
    return place != m_records.end() && (*place)->GetId() == id ? *place : nullptr;
}

std::vector<CBaseRecord*>::iterator RecordIndex::PlaceOf(std::int64_t id) {
    return std::lower_bound(
        m_records.begin(), m_records.end(), id,
        [](const CBaseRecord* record, std::int64_t wanted) { return record->GetId() < wanted; });
}

// Few that came out of order are put in one by one; many only come where all were added anew.
void RecordIndex::Sort() {
    constexpr std::size_t kFew = 32;
    if (m_sorted == m_records.size()) return;
    if (m_records.size() - m_sorted <= kFew) {
        const std::vector<CBaseRecord*> late(m_records.begin() + static_cast<long>(m_sorted),
                                             m_records.end());
        m_records.resize(m_sorted);
        for (CBaseRecord* record : late) m_records.insert(PlaceOf(record->GetId()), record);
    } else {
        // Each record is looked at once, as they lie far apart in memory.
        std::vector<std::pair<std::int64_t, CBaseRecord*>> byId;
        byId.reserve(m_records.size());
        for (CBaseRecord* record : m_records) byId.emplace_back(record->GetId(), record);
        std::sort(byId.begin(), byId.end());
        for (std::size_t i = 0; i < byId.size(); ++i) m_records[i] = byId[i].second;
    }
    m_sorted = m_records.size();
}

}  // namespace orvo
