// Rows of a view that are read again, as somebody else has changed their records.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include <desktop/views/RowUpdate.h>

namespace orvo::desktop {

RowUpdate::RowUpdate(ExchangeableRows& view, CBaseTable& table)
    : m_view(view), m_table(table), m_rows(dynamic_cast<ListPeer&>(*view.Window().GetPeer())) {}

void RowUpdate::Run(std::vector<std::int64_t> ids) {
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    for (const std::int64_t id : ids) Read(id);
    if (!m_changes.empty()) Exchange();
}

// As long as any place is looked for, each row stands by what its record was.
void RowUpdate::Read(std::int64_t id) {
    Change change{m_view.Records().Find(id), m_view.NewRecord(), -1};
    const bool isThere = m_table.Find(id, *change.fresh) == 0 && !change.fresh->IsDeleted();
    if (!isThere || !m_view.BelongsIn(*change.fresh)) change.fresh.reset();
    if (!change.shown && !change.fresh) return;
    if (change.shown) change.row = RowOf(*change.shown);
    if (change.shown && change.fresh && m_view.Compare(*change.shown, *change.fresh) == 0) {
        change.shown->TakeOver(*change.fresh);
        m_rows.InvalidateRows(change.row, change.row);
        return;
    }
    if (change.fresh) change.place = PlaceOf(*change.fresh);
    m_changes.push_back(std::move(change));
}

// Among equals the order is that of the table.
bool RowUpdate::IsBefore(const CBaseRecord& left, const CBaseRecord& right) {
    const int order = m_view.Compare(left, right);
    return order != 0 ? order < 0 : left.GetId() < right.GetId();
}

int RowUpdate::PlaceOf(const CBaseRecord& record) {
    int first = 0;
    int last = m_rows.RowCount();
    while (first < last) {
        const int middle = first + (last - first) / 2;
        if (IsBefore(*m_view.RecordOf(m_rows.Data(middle)), record)) {
            first = middle + 1;
        } else {
            last = middle;
        }
    }
    return first;
}

int RowUpdate::RowOf(const CBaseRecord& record) {
    const int place = PlaceOf(record);
    if (m_view.RecordOf(m_rows.Data(place)) == &record) return place;
    // What the user changes in a row may leave it in another order among equals.
    return m_rows.FindData(reinterpret_cast<DWORD>(&record), -1);
}

void RowUpdate::TakeOver(Change& change) {
    if (change.shown && change.fresh) {
        change.shown->TakeOver(*change.fresh);
    } else if (change.fresh) {
        m_view.Records().Add(change.fresh.get());
        change.shown = change.fresh.release();
    }
}

void RowUpdate::Exchange() {
    std::sort(m_changes.begin(), m_changes.end(), [this](const Change& left, const Change& right) {
        if (!left.fresh || !right.fresh) return bool{left.fresh} < bool{right.fresh};
        return left.place != right.place ? left.place < right.place
                                         : IsBefore(*left.fresh, *right.fresh);
    });
    std::vector<int> going;
    std::vector<ComingRow> coming;
    std::vector<CBaseRecord*> gone;
    for (Change& change : m_changes) {
        if (change.row >= 0) going.push_back(change.row);
        if (!change.fresh) {
            gone.push_back(change.shown);
            m_view.Lose(*change.shown);
            continue;
        }
        TakeOver(change);
        coming.push_back({change.place, change.row, m_view.NewRow(*change.shown)});
    }
    std::sort(going.begin(), going.end());
    m_view.Records().Remove(gone);
    m_rows.ExchangeRows(going, std::move(coming));
    for (CBaseRecord* record : gone) const std::unique_ptr<CBaseRecord> freed(record);
}

}  // namespace orvo::desktop
