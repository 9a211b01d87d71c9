// The entries of a view that the user has selected.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include <contracts/RecordStore.h>
#include <host/Disclosure.h>
#include <platform/window/base/CWnd.h>

namespace orvo::desktop {

class EntrySelection {
public:
    virtual ~EntrySelection() = default;

    virtual int SelectedCount() = 0;  // of records
    virtual int SelectedRowCount() { return SelectedCount(); }
    // The selected records that may go out whole on that way. They are the view's, until it is
    // filled anew or its selection changes.
    virtual std::vector<CBaseRecord*> SelectedRecords(WayOut way) = 0;
    // How many selected ones aren't.
    int LeftOutOfSelection(WayOut way);
    // Selects the record of that id, and nothing else.
    virtual void SelectRecord(std::int64_t id) = 0;
    // Gives the view the keys, with all its rows selected, or the first, where it has some.
    virtual void SelectAll() = 0;
    virtual void GoToFirst() = 0;
    // Where in the window the row lies that has the focus.
    // Returns:  false where there is none.
    virtual bool FocusPlace(CRect& place) = 0;
};

}  // namespace orvo::desktop
