// All rows of a view of which only those show that hold what the user looks for.
// SPDX-License-Identifier: MIT
#include <memory>
#include <utility>

#include <desktop/views/FoundRows.h>

namespace orvo::desktop {

FoundRows::FoundRows(FindIndex& index, const ListPeer& view, Entries entries)
    : m_index(index), m_entries(std::move(entries)) {
    const int count = view.RowCount();
    m_rows.reserve(static_cast<std::size_t>(count));
    for (int row = 0; row < count; ++row) {
        const DWORD data = view.Data(row);
        m_rows.push_back({data, m_entries.recordOf(data), std::nullopt});
    }
    LookUpSlots();
}

FoundRows::~FoundRows() {
    for (const Row& row : m_rows) {
        const std::unique_ptr<CBaseRecord> hidden(row.isShown ? nullptr : row.record);
    }
}

bool FoundRows::MayBeFound(const Row& row) const {
    return row.record && !(m_entries.masksPrivate && row.record->IsPrivate());
}

void FoundRows::LookUpSlots() {
    m_version = m_index.Version();
    m_matching.clear();
    m_query = {};
    m_next = m_rows.size();
    for (std::size_t i = m_rows.size(); i-- > 0;) {
        Row& row = m_rows[i];
        row.slot = std::nullopt;
        if (!MayBeFound(row)) continue;
        row.slot = m_index.SlotOf(row.record->GetId());
        if (!row.slot) m_next = i;
    }
}

void FoundRows::Read(std::chrono::milliseconds time) {
    using Clock = std::chrono::steady_clock;
    constexpr int kReadsAtATime = 16;  // between two looks at the clock
    if (m_version != m_index.Version()) LookUpSlots();
    const Clock::time_point end = Clock::now() + time;
    for (int reads = 0; m_next < m_rows.size(); ++m_next) {
        Row& row = m_rows[m_next];
        if (row.slot || !MayBeFound(row)) continue;
        if (reads == kReadsAtATime) {
            if (Clock::now() >= end) return;
            reads = 0;
        }
        ++reads;
        row.slot = m_index.Add(row.record->GetId(), m_entries.textOf(row.data));
    }
}

void FoundRows::Match(const FindQuery& query) {
    const bool isWithin = !m_query.IsEmpty() && query.IsWithin(m_query);
    m_matching = isWithin ? m_index.Matching(query, m_matching) : m_index.Matching(query);
    // Rows that are still to be read have no part in the answer.
    m_query = IsRead() ? query : FindQuery();
}

bool FoundRows::Find(const FindQuery& query, const RowFilter& filter) {
    if (m_version != m_index.Version()) LookUpSlots();
    const bool areAll = query.IsEmpty();
    if (!areAll) Match(query);
    bool isOther = false;
    for (Row& row : m_rows) {
        const bool isFound = areAll || (row.slot && m_matching[*row.slot]);
        const bool isShown = isFound && (!filter || (MayBeFound(row) && filter(*row.record)));
        if (isShown == row.isShown) continue;
        row.isShown = isShown;
        isOther = true;
    }
    return isOther;
}

std::vector<DWORD> FoundRows::Shown() const {
    std::vector<DWORD> shown;
    for (const Row& row : m_rows) {
        if (row.isShown) shown.push_back(row.data);
    }
    return shown;
}

bool FoundRows::AreIn(const ListPeer& view) const {
    const int count = view.RowCount();
    int shown = 0;
    for (const Row& row : m_rows) {
        if (!row.isShown) continue;
        if (shown == count || view.Data(shown) != row.data) return false;
        ++shown;
    }
    return shown == count;
}

}  // namespace orvo::desktop
