// Which rows of a view the user has before him, kept while the view is filled anew.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <unordered_set>

#include <platform/window/base/CWnd.h>
#include <platform/window/list/ListPeer.h>

namespace orvo::desktop {

// Rows are remembered by the ids of their records, so that they are found again in another order,
// or in another view of the same table.
class RowKeeper {
public:
    // Returns the id of the record behind a row's data word, which isn't 0.
    using IdOf = std::function<std::int64_t(DWORD)>;

    // Takes selection, focus and the first row in view; of a window that shows no rows, none.
    RowKeeper(const CWnd& view, IdOf idOf);
    // Takes the one record, which is to be seen.
    RowKeeper(IdOf idOf, std::int64_t id);

    // Selects the same records, as far as they are there, and shows the first of them where it was.
    void Restore(const CWnd& view) const;

private:
    IdOf m_idOf;
    std::unordered_set<std::int64_t> m_selected;
    std::int64_t m_focus = 0;
    std::int64_t m_top = 0;
};

}  // namespace orvo::desktop
