// What keys and mouse buttons mean to a list: steps on its rows, selection and focus.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <platform/window/list/ListInput.h>

namespace orvo {

namespace {

void SelectFromAnchor(ListPeer& list, int row) {
    if (list.Anchor() < 0) list.SetAnchor(std::max(list.FocusRow(), 0));
    SelectOnly(list, std::min(list.Anchor(), row), std::max(list.Anchor(), row));
}

void Toggle(ListPeer& list, int row, bool isSingle) {
    const bool selects = !list.IsSelected(row);
    if (isSingle && selects) {
        SelectOnly(list, row, row);
    } else {
        list.Select(row, row, selects);
    }
    list.SetAnchor(row);
}

void GoTo(ListPeer& list, int row, const ListGesture& gesture) {
    if (gesture.extends && !gesture.isSingle) {
        SelectFromAnchor(list, row);
    } else if (!gesture.keeps) {
        SelectOnly(list, row, row);
        list.SetAnchor(row);
    }
    list.SetFocusRow(row);
}

void HandleSpace(ListPeer& list, const ListGesture& gesture) {
    const int row = list.FocusRow();
    if (row < 0) return;
    if (gesture.keeps) {
        Toggle(list, row, gesture.isSingle);
    } else {
        GoTo(list, row, gesture);
    }
    list.EnsureVisible(row, false);
}

// Page keys go to the edge of what is in view first, then one page on.
int PageUp(const ListPeer& list, int focus) {
    const int top = list.TopRow();
    return focus > top ? top : std::max(focus - std::max(list.RowsPerPage() - 1, 1), 0);
}

int PageDown(const ListPeer& list, int focus) {
    const int bottom = list.TopRow() + list.RowsPerPage() - 1;
    const int target = focus < bottom ? bottom : focus + std::max(list.RowsPerPage() - 1, 1);
    return std::min(target, list.RowCount() - 1);
}

}  // namespace

void SelectOnly(ListPeer& list, int first, int last) {
    list.Select(0, first - 1, false);
    list.Select(last + 1, list.RowCount() - 1, false);
    list.Select(first, last, true);
}

int RowForKey(const ListPeer& list, UINT key) {
    const int count = list.RowCount();
    if (count == 0) return -1;
    const int focus = list.FocusRow();
    const auto step = [&](int rows) {
        const int row = focus < 0 ? 0 : focus + rows;
        return row >= 0 && row < count ? row : focus;
    };
    const bool isReport = list.Mode() == ListMode::Report;
    const bool isAside = list.ScrollsAside();
    const int down = isAside ? 1 : list.RowsPerLine();
    const int aside = isAside ? list.RowsPerLine() : 1;
    switch (key) {
        case VK_UP:
            return step(-down);
        case VK_DOWN:
            return step(down);
        case VK_LEFT:
            return isReport ? -1 : step(-aside);
        case VK_RIGHT:
            return isReport ? -1 : step(aside);
        case VK_HOME:
            return 0;
        case VK_END:
            return count - 1;
        case VK_PRIOR:
            return focus < 0 ? 0 : PageUp(list, focus);
        case VK_NEXT:
            return focus < 0 ? 0 : PageDown(list, focus);
        default:
            return -1;
    }
}

bool HandleListKey(ListPeer& list, UINT key, const ListGesture& gesture) {
    if (key == VK_SPACE) {
        HandleSpace(list, gesture);
        return true;
    }
    const int row = RowForKey(list, key);
    if (row < 0) return false;
    GoTo(list, row, gesture);
    list.EnsureVisible(row, false);
    return true;
}

bool HandleListPress(ListPeer& list, int row, const ListGesture& gesture) {
    const bool isPlain = !gesture.keeps && !gesture.extends;
    if (row < 0) {
        if (isPlain) list.Select(0, list.RowCount() - 1, false);
        return false;
    }
    const bool narrows = isPlain && list.IsSelected(row) && list.SelectedCount() > 1;
    if (gesture.keeps && !gesture.extends) {
        Toggle(list, row, gesture.isSingle);
        list.SetFocusRow(row);
    } else if (list.IsSelected(row) && !gesture.extends) {
        list.SetAnchor(row);
        list.SetFocusRow(row);
    } else {
        GoTo(list, row, gesture);
    }
    return narrows;
}

void HandleListRightPress(ListPeer& list, int row, const ListGesture& gesture) {
    if (row >= 0 && list.IsSelected(row)) {
        list.SetFocusRow(row);
    } else {
        HandleListPress(list, row, {false, false, gesture.isSingle});
    }
}

}  // namespace orvo
