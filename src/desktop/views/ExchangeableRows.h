// A view whose rows, which hold records, can be exchanged.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <contracts/RecordStore.h>
#include <orvoshare/text/RecordIndex.h>
#include <people/FindText.h>
#include <platform/window/base/CWnd.h>
#include <platform/window/list/ListPeer.h>

namespace orvo {
class FindIndex;
}

namespace orvo::desktop {

class ExchangeableRows {
public:
    virtual ~ExchangeableRows() = default;

    // The window of the view in use.
    virtual CWnd& Window() = 0;
    // The record behind the data word of a row; null where that is 0. It is the view's.
    virtual CBaseRecord* RecordOf(DWORD data) const = 0;

protected:
    friend class ShownFind;
    friend class RowUpdate;

    // The texts by which records of this kind are found, and that of a row.
    virtual FindIndex& Texts() = 0;
    virtual FindText TextOf(DWORD data) const = 0;
    // Takes all rows out, and frees their records.
    virtual void Empty() = 0;
    // Puts a row, with its record, which is the view's then, at the end.
    virtual void Append(DWORD data) = 0;

    virtual std::unique_ptr<CBaseRecord> NewRecord() = 0;
    // The row of a record, for whose texts and pictures the view asks as it does for its others.
    virtual ListRow NewRow(CBaseRecord& record) const = 0;
    // Whether the record, which isn't marked as deleted, has a row in the view as it is filled.
    virtual bool BelongsIn(CBaseRecord& record) = 0;
    // As the view is sorted: below 0 where the first one goes first, 0 where nothing decides.
    virtual int Compare(const CBaseRecord& left, const CBaseRecord& right) = 0;
    // The records of all rows.
    virtual RecordIndex& Records() = 0;
    // The record goes, and is freed.
    virtual void Lose(const CBaseRecord& record) = 0;
};

}  // namespace orvo::desktop
