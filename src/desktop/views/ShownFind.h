// What the user looks for in a view, whose rows are those that were found.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

#include <desktop/views/ExchangeableRows.h>
#include <desktop/views/FoundRows.h>
#include <orvoshare/options/DesktopOptions.h>
#include <platform/window/base/CWnd.h>

namespace orvo::desktop {

class ShownFind {
public:
    struct Listeners {
        std::function<void()> refill;   // fills the view anew, and calls Filled()
        std::function<void()> changed;  // after rows have come or gone
    };

    // The view and the options outlive it.
    ShownFind(ExchangeableRows& view, const COrvoDesktopOptions& options, Listeners listeners);

    // From now on only rows show that hold what is looked for; all do for an empty query. Masked
    // rows hold nothing. What is found is marked in the rows.
    void Set(const FindQuery& query);
    // The same for those that the filter chooses among them; all for an empty one.
    void SetFilter(RowFilter filter);
    bool IsOn() const { return IsLooking() || m_filter; }
    // True while something is looked for, false for a filter alone.
    bool IsLooking() const { return !m_query.IsEmpty(); }

    // False while more rows may be found, as their texts aren't read yet.
    bool IsWhole() const { return !m_found || !IsLooking() || m_found->IsRead(); }
    // Reads texts for a moment, and shows what is found once all are read.
    void ReadOn();

    // How many rows there would be if nothing were looked for.
    int CountOfAll();

    // The view was filled with all rows: those are taken out of it that aren't found.
    void Filled();
    // To be called before the view is filled or emptied.
    void Drop() { m_found.reset(); }

private:
    ListPeer& Rows();
    bool Choose();
    void Show();
    void Mark();

    ExchangeableRows& m_view;
    const COrvoDesktopOptions& m_options;
    Listeners m_listeners;
    FindQuery m_query;
    RowFilter m_filter;
    std::unique_ptr<FoundRows> m_found;  // while there is a query, and rows
};

}  // namespace orvo::desktop
