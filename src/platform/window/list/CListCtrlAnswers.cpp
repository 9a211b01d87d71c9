// CListCtrl: how it answers the list messages from its peer.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <platform/text/MultiByte.h>
#include <platform/window/list/CListCtrl.h>
#include <platform/window/list/ListInput.h>
#include <platform/window/list/ListSort.h>

namespace orvo {

namespace {

// The peer's use of an image list, by the number that messages have for it.
constexpr ImageUse kImageUses[] = {ImageUse::Normal, ImageUse::Small, ImageUse::State};

bool IsImageUse(WPARAM number) {
    return number < std::size(kImageUses);
}

}  // namespace

LRESULT CListCtrl::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (m_list && (AnswerRows(message, wParam, lParam, result) ||
                   AnswerState(message, wParam, lParam, result) ||
                   AnswerColumns(message, wParam, lParam, result) ||
                   AnswerPlaces(message, wParam, lParam, result) ||
                   AnswerInput(message, wParam, lParam, result))) {
        return result;
    }
    return CWnd::DefWindowProc(message, wParam, lParam);
}

int CListCtrl::InsertRow(const LVITEM& item) {
    ListRow row;
    row.asksText = (item.mask & LVIF_TEXT) != 0 && item.pszText == LPSTR_TEXTCALLBACK;
    row.asksImage = (item.mask & LVIF_IMAGE) != 0 && item.iImage == I_IMAGECALLBACK;
    if ((item.mask & LVIF_TEXT) != 0 && !row.asksText) row.text = item.pszText;
    if ((item.mask & LVIF_IMAGE) != 0) row.image = item.iImage;
    if ((item.mask & LVIF_PARAM) != 0) row.data = static_cast<DWORD>(item.lParam);
    const int number = m_list->InsertRow(item.iItem, std::move(row));
    if (number >= 0 && (item.mask & LVIF_STATE) != 0) {
        ChangeState(number, item.state, item.stateMask);
    }
    return number;
}

bool CListCtrl::ChangeRow(const LVITEM& item) {
    const int row = item.iItem;
    if (row < 0 || row >= m_list->RowCount()) return false;
    if ((item.mask & LVIF_TEXT) != 0) m_list->SetCellText(row, item.iSubItem, item.pszText);
    if ((item.mask & LVIF_IMAGE) != 0) m_list->SetImage(row, item.iImage);
    if ((item.mask & LVIF_PARAM) != 0) m_list->SetData(row, static_cast<DWORD>(item.lParam));
    if ((item.mask & LVIF_STATE) != 0) ChangeState(row, item.state, item.stateMask);
    return true;
}

bool CListCtrl::ReadRow(LVITEM& item) {
    const int row = item.iItem;
    if (row < 0 || row >= m_list->RowCount()) return false;
    if ((item.mask & LVIF_TEXT) != 0) {
        lstrcpyn(item.pszText, CellText(row, item.iSubItem), item.cchTextMax);
    }
    if ((item.mask & LVIF_IMAGE) != 0) item.iImage = RowImage(row);
    if ((item.mask & LVIF_PARAM) != 0) item.lParam = static_cast<LPARAM>(m_list->Data(row));
    if ((item.mask & LVIF_STATE) != 0) item.state = GetItemState(row, item.stateMask);
    return true;
}

bool CListCtrl::AnswerRows(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const int row = static_cast<int>(wParam);
    switch (message) {
        case LVM_GETITEMCOUNT:
            result = m_list->RowCount();
            return true;
        case LVM_SETITEMCOUNT:
            m_list->ReserveRows(row);
            return true;
        case LVM_INSERTITEM:
            result = InsertRow(*PointerOf<const LVITEM>(lParam));
            return true;
        case LVM_GETITEM:
            result = ReadRow(*PointerOf<LVITEM>(lParam));
            return true;
        case LVM_SETITEM:
            result = ChangeRow(*PointerOf<const LVITEM>(lParam));
            return true;
        case LVM_DELETEITEM:
            result = m_list->DeleteRow(row);
            return true;
        case LVM_DELETEALLITEMS:
            m_list->DeleteAllRows();
            result = 1;
            return true;
        case LVM_SETITEMTEXT: {
            const auto& item = *PointerOf<const LVITEM>(lParam);
            result = m_list->SetCellText(row, item.iSubItem, item.pszText);
            return true;
        }
        case LVM_GETITEMTEXT: {
            auto& item = *PointerOf<LVITEM>(lParam);
            const CString text = CellText(row, item.iSubItem);
            lstrcpyn(item.pszText, text, item.cchTextMax);
            result = text.GetLength();
            return true;
        }
        case LVM_FINDITEM: {
            const auto& wanted = *PointerOf<const LVFINDINFO>(lParam);
            const bool byData = (wanted.flags & LVFI_PARAM) != 0;
            result = byData ? m_list->FindData(static_cast<DWORD>(wanted.lParam), row) : -1;
            return true;
        }
        case LVM_SORTITEMS: {
            const auto compare = reinterpret_cast<PFNLVCOMPARE>(lParam);
            if (!compare) return true;
            m_list->Reorder(SortedRows(*m_list, compare, static_cast<LPARAM>(wParam)));
            result = 1;
            return true;
        }
        default:
            return false;
    }
}

void CListCtrl::ChangeState(int row, UINT state, UINT mask) {
    ListPeer& list = *m_list;
    const bool isSelected = (state & LVIS_SELECTED) != 0;
    if ((mask & LVIS_SELECTED) != 0) {
        const bool isSingle = (GetStyle() & LVS_SINGLESEL) != 0;
        if (row == -1) {
            if (!isSingle || !isSelected) list.Select(0, list.RowCount() - 1, isSelected);
        } else if (isSingle && isSelected) {
            SelectOnly(list, row, row);
        } else {
            list.Select(row, row, isSelected);
        }
    }
    if ((mask & LVIS_FOCUSED) == 0) return;
    if ((state & LVIS_FOCUSED) != 0) {
        if (row >= 0) list.SetFocusRow(row);
    } else if (row == -1 || row == list.FocusRow()) {
        list.SetFocusRow(-1);
    }
}

int CListCtrl::NextRow(int after, UINT flags) const {
    if ((flags & LVNI_FOCUSED) != 0) {
        const int focus = m_list->FocusRow();
        const bool fits = (flags & LVNI_SELECTED) == 0 || m_list->IsSelected(focus);
        return focus > after && fits ? focus : -1;
    }
    if ((flags & LVNI_SELECTED) != 0) return m_list->NextSelected(after);
    return after + 1 < m_list->RowCount() ? std::max(after + 1, 0) : -1;
}

bool CListCtrl::AnswerState(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const int row = static_cast<int>(wParam);
    switch (message) {
        case LVM_GETITEMSTATE: {
            UINT state = m_list->IsSelected(row) ? LVIS_SELECTED : 0;
            if (row >= 0 && row == m_list->FocusRow()) state |= LVIS_FOCUSED;
            result = state & static_cast<UINT>(lParam);
            return true;
        }
        case LVM_SETITEMSTATE: {
            const auto& item = *PointerOf<const LVITEM>(lParam);
            result = row >= -1 && row < m_list->RowCount();
            if (result != 0) ChangeState(row, item.state, item.stateMask);
            return true;
        }
        case LVM_GETNEXTITEM:
            result = NextRow(row, static_cast<UINT>(lParam));
            return true;
        case LVM_GETSELECTEDCOUNT:
            result = m_list->SelectedCount();
            return true;
        case LVM_GETSELECTIONMARK:
            result = m_list->Anchor();
            return true;
        case LVM_SETSELECTIONMARK:
            result = m_list->Anchor();
            m_list->SetAnchor(static_cast<int>(lParam));
            return true;
        default:
            return false;
    }
}

int CListCtrl::InsertListColumn(int column, const LVCOLUMN& content) {
    const int number = m_list->InsertColumn(column, {});
    if (number >= 0) ChangeColumn(number, content);
    return number;
}

bool CListCtrl::ChangeColumn(int column, const LVCOLUMN& content) {
    ListColumn changed = m_list->Column(column);
    if ((content.mask & LVCF_TEXT) != 0) changed.heading = content.pszText;
    if ((content.mask & LVCF_WIDTH) != 0) changed.width = std::max(content.cx, 0);
    if ((content.mask & LVCF_FMT) != 0) changed.format = content.fmt;
    if ((content.mask & LVCF_IMAGE) != 0) changed.image = content.iImage;
    return m_list->SetColumn(column, changed);
}

bool CListCtrl::ReadColumn(int column, LVCOLUMN& content) const {
    if (column < 0 || column >= m_list->ColumnCount()) return false;
    const ListColumn stored = m_list->Column(column);
    if ((content.mask & LVCF_TEXT) != 0) {
        lstrcpyn(content.pszText, stored.heading, content.cchTextMax);
    }
    if ((content.mask & LVCF_WIDTH) != 0) content.cx = stored.width;
    if ((content.mask & LVCF_FMT) != 0) content.fmt = stored.format;
    if ((content.mask & LVCF_IMAGE) != 0) content.iImage = stored.image;
    return true;
}

bool CListCtrl::AnswerColumns(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const int column = static_cast<int>(wParam);
    switch (message) {
        case LVM_INSERTCOLUMN:
            result = InsertListColumn(column, *PointerOf<const LVCOLUMN>(lParam));
            return true;
        case LVM_SETCOLUMN:
            result = ChangeColumn(column, *PointerOf<const LVCOLUMN>(lParam));
            return true;
        case LVM_GETCOLUMN:
            result = ReadColumn(column, *PointerOf<LVCOLUMN>(lParam));
            return true;
        case LVM_DELETECOLUMN:
            result = m_list->DeleteColumn(column);
            return true;
        case LVM_GETCOLUMNWIDTH:
            result = m_list->Column(column).width;
            return true;
        case LVM_SETCOLUMNWIDTH: {
            LVCOLUMN content;
            content.mask = LVCF_WIDTH;
            content.cx = static_cast<int>(lParam);
            result = ChangeColumn(column, content);
            return true;
        }
        case LVM_GETCOLUMNORDERARRAY:
        case LVM_SETCOLUMNORDERARRAY: {
            const CHeaderCtrl* header = GetHeaderCtrl();
            const bool gets = message == LVM_GETCOLUMNORDERARRAY;
            if (header) {
                result = header->SendMessage(gets ? HDM_GETORDERARRAY : HDM_SETORDERARRAY, wParam,
                                             lParam);
            }
            return true;
        }
        case LVM_GETHEADER: {
            const CHeaderCtrl* header = GetHeaderCtrl();
            result = header ? LParamOf(header->GetSafeHwnd()) : 0;
            return true;
        }
        case LVM_SETVIEW:
            result = column >= 0 && column <= static_cast<int>(ListMode::List) ? 1 : -1;
            if (result == 1) m_list->SetMode(static_cast<ListMode>(column));
            return true;
        case LVM_GETVIEW:
            result = static_cast<int>(m_list->Mode());
            return true;
        default:
            return false;
    }
}

LRESULT CListCtrl::HitRow(LVHITTESTINFO& hit) const {
    const ListHit found = m_list->HitTest(hit.pt);
    hit.flags = found.flags;
    hit.iItem = found.row;
    hit.iSubItem = std::max(found.column, 0);
    return found.row;
}

// In a report the first column has parts; the others are all label.
bool CListCtrl::PartRect(int row, int column, int part, CRect& rect) const {
    if (column == 0 && part != LVIR_BOUNDS) {
        const RowPart which = part == LVIR_ICON ? RowPart::Icon : RowPart::Label;
        return m_list->RowRect(row, which, rect);
    }
    return m_list->CellRect(row, column, rect);
}

bool CListCtrl::AnswerPlaces(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const int row = static_cast<int>(wParam);
    switch (message) {
        case LVM_GETITEMRECT: {
            auto& rect = *PointerOf<CRect>(lParam);
            // The bounds for selection are those of the row.
            const int part = rect.left == LVIR_SELECTBOUNDS ? LVIR_BOUNDS : rect.left;
            result = part >= LVIR_BOUNDS && part <= LVIR_LABEL &&
                     m_list->RowRect(row, static_cast<RowPart>(part), rect);
            return true;
        }
        case LVM_GETSUBITEMRECT: {
            auto& rect = *PointerOf<CRect>(lParam);
            result = PartRect(row, rect.top, rect.left, rect);
            return true;
        }
        case LVM_HITTEST:
        case LVM_SUBITEMHITTEST:
            result = HitRow(*PointerOf<LVHITTESTINFO>(lParam));
            return true;
        case LVM_GETITEMPOSITION:
            result = m_list->IconPosition(row, *PointerOf<CPoint>(lParam));
            return true;
        case LVM_SETITEMPOSITION32:
            result = m_list->SetIconPosition(row, *PointerOf<const CPoint>(lParam));
            return true;
        case LVM_SETITEMPOSITION:
            result = m_list->SetIconPosition(row, PointOf(lParam));
            return true;
        case LVM_ENSUREVISIBLE:
            result = m_list->EnsureVisible(row, lParam != 0);
            return true;
        case LVM_GETTOPINDEX:
            result = m_list->TopRow();
            return true;
        case LVM_GETCOUNTPERPAGE:
            result = m_list->RowsPerPage();
            return true;
        case LVM_UPDATE:
            m_list->InvalidateRows(row, row);
            result = row >= 0 && row < m_list->RowCount();
            return true;
        case LVM_REDRAWITEMS:
            m_list->InvalidateRows(row, static_cast<int>(lParam));
            result = 1;
            return true;
        case LVM_SETIMAGELIST:
            if (!IsImageUse(wParam)) return true;
            result = LParamOf(m_list->Images(kImageUses[wParam]));
            m_list->SetImages(kImageUses[wParam], PointerOf<ImageListHandle>(lParam));
            return true;
        case LVM_GETIMAGELIST:
            if (IsImageUse(wParam)) result = LParamOf(m_list->Images(kImageUses[wParam]));
            return true;
        default:
            return false;
    }
}

}  // namespace orvo
