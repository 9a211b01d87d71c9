// Which rows of a view the user has before him, kept while the view is filled anew.
// SPDX-License-Identifier: MIT
#include <utility>

#include <desktop/views/RowKeeper.h>

namespace orvo::desktop {
namespace {

ListPeer* RowsOf(const CWnd& view) {
    return dynamic_cast<ListPeer*>(view.GetPeer());
}

}  // namespace

RowKeeper::RowKeeper(const CWnd& view, IdOf idOf) : m_idOf(std::move(idOf)) {
    const ListPeer* rows = RowsOf(view);
    if (!rows) return;
    const auto idAt = [&](int row) {
        const DWORD data = rows->Data(row);
        return data == 0 ? 0 : m_idOf(data);
    };
    for (int row = rows->NextSelected(-1); row >= 0; row = rows->NextSelected(row)) {
        m_selected.insert(idAt(row));
    }
    m_focus = idAt(rows->FocusRow());
    m_top = idAt(rows->TopRow());
}

RowKeeper::RowKeeper(IdOf idOf, std::int64_t id)
    : m_idOf(std::move(idOf)), m_selected{id}, m_focus(id), m_top(0) {}

void RowKeeper::Restore(const CWnd& view) const {
    ListPeer* rows = RowsOf(view);
    if (!rows || (m_selected.empty() && m_focus == 0 && m_top == 0)) return;
    int focus = -1;
    int top = -1;
    for (int row = 0; row < rows->RowCount(); ++row) {
        const DWORD data = rows->Data(row);
        const std::int64_t id = data == 0 ? 0 : m_idOf(data);
        if (id == 0) continue;
        if (id == m_focus) focus = row;
        if (id == m_top) top = row;
        if (m_selected.count(id) != 0) rows->Select(row, row, true);
    }
    if (focus >= 0) {
        rows->SetFocusRow(focus);
        rows->SetAnchor(focus);
    }
    if (top >= 0) {
        // From below, a row comes into view as the first one.
        rows->EnsureVisible(rows->RowCount() - 1, false);
        rows->EnsureVisible(top, false);
    }
    if (focus >= 0 && rows->IsSelected(focus)) rows->EnsureVisible(focus, false);
}

}  // namespace orvo::desktop
