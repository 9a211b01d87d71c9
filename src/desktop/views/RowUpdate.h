// Rows of a view that are read again, as somebody else has changed their records.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include <desktop/views/ExchangeableRows.h>

namespace orvo::desktop {

// Reads only the records of these ids, and shows them as the view would when filled anew: each is
// redrawn, put at its place, put in or taken out. A record that stays is the same object.
class RowUpdate {
public:
    // Both outlive it. The view shows all of its rows, in its order.
    RowUpdate(ExchangeableRows& view, CBaseTable& table);

    // Ids may come several times.
    void Run(std::vector<std::int64_t> ids);

private:
    struct Change {
        CBaseRecord* shown;                  // null where it has no row
        std::unique_ptr<CBaseRecord> fresh;  // null where it is to have none
        int row;                             // -1 where it has none
        int place = -1;                      // before which row it belongs
    };

    void Read(std::int64_t id);
    bool IsBefore(const CBaseRecord& left, const CBaseRecord& right);
    int PlaceOf(const CBaseRecord& record);
    int RowOf(const CBaseRecord& record);
    void TakeOver(Change& change);
    void Exchange();

    ExchangeableRows& m_view;
    CBaseTable& m_table;
    ListPeer& m_rows;
    std::vector<Change> m_changes;  // those that come, go or move
};

}  // namespace orvo::desktop
