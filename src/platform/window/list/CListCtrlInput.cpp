// CListCtrl: the user's keys and clicks, what is reported to and asked of the parent, and painting.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <platform/window/base/WindowSystem.h>
#include <platform/window/list/CListCtrl.h>
#include <platform/window/list/ListInput.h>
#include <platform/window/pictures/CDC.h>

namespace orvo {

namespace {

constexpr int kLongestCellText = 260;
constexpr int kLongestTip = 1024;
constexpr UINT kCellTextFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
constexpr int kMarkMargin = 2;  // pixels above and below the text of a row that is selected
constexpr UINT kIconTextFormat = DT_CENTER | DT_WORDBREAK | DT_NOPREFIX | DT_END_ELLIPSIS;

}  // namespace

ListGesture CListCtrl::Gesture(bool extends, bool keeps) const {
    return {extends, keeps, (GetStyle() & LVS_SINGLESEL) != 0};
}

bool CListCtrl::AnswerInput(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const auto flags = static_cast<UINT>(wParam);
    const CPoint point = PointOf(lParam);
    switch (message) {
        case WM_KEYDOWN:
            KeyPressed(flags, HIWORD(static_cast<unsigned long>(lParam)));
            return true;
        case WM_LBUTTONDOWN:
            LeftPressed(point, flags);
            return true;
        case WM_LBUTTONUP:
            LeftReleased(point, flags);
            return true;
        case WM_LBUTTONDBLCLK:
            TellClick(NM_DBLCLK, point, flags);
            return true;
        case WM_RBUTTONDOWN:
            SetFocus();
            if (m_list)
                HandleListRightPress(*m_list, m_list->HitTest(point).row, Gesture(false, false));
            return true;
        case WM_RBUTTONUP:
            TellClick(NM_RCLICK, point, flags);
            return true;
        case WM_SETFOCUS:
        case WM_KILLFOCUS: {
            NMHDR header;
            NotifyParent(header, message == WM_SETFOCUS ? NM_SETFOCUS : NM_KILLFOCUS);
            return true;
        }
        case WM_PAINT:
            if (wParam != 0 && m_list) m_list->PaintRows(*reinterpret_cast<CDC*>(wParam));
            return true;
        case WM_NOTIFY: {
            const auto* header = PointerOf<NMHEADER>(lParam);
            if (!header || header->hdr.code != HDN_ITEMCLICK) return false;
            TellHeadingClick(header->iItem);
            result = 0;
            return true;
        }
        default:
            return false;
    }
}

void CListCtrl::KeyPressed(UINT key, UINT flags) {
    NMLVKEYDOWN pressed{{}, key, flags};
    NotifyParent(pressed.hdr, LVN_KEYDOWN);
    if (key == VK_RETURN) {
        NMHDR header;
        NotifyParent(header, NM_RETURN);
    }
    if (!m_list) return;
    const WindowSystem& system = WindowSystem::Current();
    HandleListKey(*m_list, key, Gesture(system.IsKeyDown(VK_SHIFT), system.IsKeyDown(VK_CONTROL)));
}

void CListCtrl::LeftPressed(CPoint point, UINT flags) {
    SetFocus();
    if (!m_list) return;
    const int row = m_list->HitTest(point).row;
    const bool extends = (flags & MK_SHIFT) != 0;
    const bool keeps = (flags & MK_CONTROL) != 0;
    m_narrowsOnRelease = HandleListPress(*m_list, row, Gesture(extends, keeps));
}

void CListCtrl::LeftReleased(CPoint point, UINT flags) {
    if (!m_list) return;
    const int row = m_list->HitTest(point).row;
    const DWORD data = m_list->Data(row);
    const bool narrows = m_narrowsOnRelease;
    m_narrowsOnRelease = false;
    TellClick(NM_CLICK, point, flags);
    // The report of the click may have moved the rows.
    if (narrows && m_list && m_list->IsSelected(row) && m_list->Data(row) == data) {
        SelectOnly(*m_list, row, row);
    }
}

void CListCtrl::TellClick(UINT code, CPoint point, UINT flags) {
    if (!m_list) return;
    const ListHit hit = m_list->HitTest(point);
    NMITEMACTIVATE activation;
    activation.iItem = hit.row;
    activation.iSubItem = std::max(hit.column, 0);
    activation.ptAction = point;
    activation.uKeyFlags = flags & (MK_SHIFT | MK_CONTROL);
    activation.lParam = static_cast<LPARAM>(m_list->Data(hit.row));
    NotifyParent(activation.hdr, code);
}

void CListCtrl::HeadingClicked(int column) {
    if (CHeaderCtrl* header = GetHeaderCtrl()) header->TellClick(column);
}

void CListCtrl::TellHeadingClick(int column) {
    NMLISTVIEW click;
    click.iSubItem = column;
    NotifyParent(click.hdr, LVN_COLUMNCLICK);
}

void CListCtrl::StateChanged(int row, UINT oldState, UINT newState) {
    NMLISTVIEW change;
    change.iItem = row;
    change.uOldState = oldState;
    change.uNewState = newState;
    change.uChanged = LVIF_STATE;
    change.lParam = static_cast<LPARAM>(m_list->Data(row));
    NotifyParent(change.hdr, LVN_ITEMCHANGED);
}

CString CListCtrl::CellText(int row, int column) {
    if (!m_list) return {};
    if (column != 0 || !m_list->Content(row).asksText) return m_list->CellText(row, column);
    std::array<char, kLongestCellText> buffer{};
    NMLVDISPINFO question;
    question.item.mask = LVIF_TEXT;
    question.item.iItem = row;
    question.item.iSubItem = column;
    question.item.pszText = buffer.data();
    question.item.cchTextMax = kLongestCellText;
    question.item.lParam = static_cast<LPARAM>(m_list->Data(row));
    NotifyParent(question.hdr, LVN_GETDISPINFO);
    return CString(question.item.pszText);
}

int CListCtrl::RowImage(int row) {
    if (!m_list) return -1;
    const ListRow content = m_list->Content(row);
    if (!content.asksImage) return content.image;
    NMLVDISPINFO question;
    question.item.mask = LVIF_IMAGE;
    question.item.iItem = row;
    question.item.iImage = -1;
    question.item.lParam = static_cast<LPARAM>(content.data);
    NotifyParent(question.hdr, LVN_GETDISPINFO);
    return question.item.iImage;
}

CString CListCtrl::InfoTip(int row) {
    if (!m_list || row < 0 || row >= m_list->RowCount()) return {};
    std::array<char, kLongestTip> buffer{};
    NMLVGETINFOTIP question;
    question.pszText = buffer.data();
    question.cchTextMax = kLongestTip;
    question.iItem = row;
    question.lParam = static_cast<LPARAM>(m_list->Data(row));
    NotifyParent(question.hdr, LVN_GETINFOTIP);
    return CString(question.pszText);
}

void CListCtrl::DrawRow(CDC& dc, int row, const CRect& bounds) {
    if (!m_list) return;
    const bool isReport = m_list->Mode() == ListMode::Report;
    if (!isReport || (GetStyle() & LVS_OWNERDRAWFIXED) == 0) {
        const bool isSelected = m_list->IsSelected(row);
        dc.SetBkMode(TRANSPARENT);
        dc.SetTextColor(GetSysColor(isSelected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
        CRect marked = bounds;
        // A picture has the colours of the window's ground.
        if (!isReport) marked = MarkedLabel(dc, row);
        if (isSelected) dc.FillSolidRect(marked, GetSysColor(COLOR_HIGHLIGHT));
        return isReport ? DrawReportRow(dc, row, bounds) : DrawIcon(dc, row);
    }
    DRAWITEMSTRUCT item;
    item.CtlID = GetDlgCtrlID();
    item.itemID = row;
    item.itemState = (m_list->IsSelected(row) ? ODS_SELECTED : 0) |
                     (ShowsFocus(row) ? ODS_FOCUS : 0) |
                     (m_list->HotRow() == row ? ODS_HOTLIGHT : 0);
    item.hwndItem = GetSafeHwnd();
    item.dc = &dc;
    item.rcItem = bounds;
    item.itemData = m_list->Data(row);
    DrawItem(&item);
}

// Where no row has the focus yet, the first one is where keys begin.
bool CListCtrl::ShowsFocus(int row) {
    return std::max(m_list->FocusRow(), 0) == row && GetFocus() == this;
}

void CListCtrl::DrawReportRow(CDC& dc, int row, const CRect&) {
    const CImageList* images = CImageList::FromHandle(m_list->Images(ImageUse::Small));
    for (const int column : m_list->ColumnOrder()) {
        CRect cell;
        m_list->CellRect(row, column, cell);
        if (column == 0) {
            CRect icon;
            m_list->RowRect(row, RowPart::Icon, icon);
            if (images) images->Draw(dc, RowImage(row), icon.TopLeft());
            m_list->RowRect(row, RowPart::Label, cell);
        }
        cell.DeflateRect(kCellTextOffset, 0);
        dc.DrawText(CellText(row, column), cell,
                    kCellTextFormat | TextAlignment(m_list->Column(column).format));
    }
}

// One of the list that is smaller than its place stands in the middle.
void CListCtrl::DrawIconPicture(CDC& dc, int row, HIMAGELIST handle) {
    CRect icon;
    m_list->RowRect(row, RowPart::Icon, icon);
    const int image = RowImage(row);
    if (m_pictures) return m_pictures->Draw(dc, icon, m_list->Data(row), image);
    const CImageList* images = CImageList::FromHandle(handle);
    const CBitmap* bitmap = images ? images->GetImage(image) : nullptr;
    if (!bitmap) return;
    const CPoint spare{icon.Width() - bitmap->Size().cx, icon.Height() - bitmap->Size().cy};
    images->Draw(dc, image, icon.TopLeft() + CPoint{spare.x / 2, spare.y / 2});
}

// As much of the label as its text takes.
CRect CListCtrl::MarkedLabel(const CDC& dc, int row) {
    CRect label;
    const CSize text = dc.GetTextExtent(CellText(row, 0));
    if (!m_list || !m_list->RowRect(row, RowPart::Label, label)) return {};
    const int spare = std::max(label.Width() - text.cx - 2 * kCellTextOffset, 0);
    if (m_list->Mode() != ListMode::Icon) {
        label.DeflateRect(0, std::max((label.Height() - text.cy) / 2 - kMarkMargin, 0));
        label.right -= spare;
    } else if (text.cx <= label.Width()) {
        label.bottom = std::min(label.top + text.cy, label.bottom);
        label.DeflateRect(spare / 2, 0);
    }
    return label;
}

void CListCtrl::DrawIcon(CDC& dc, int row) {
    const bool isLarge = m_list->Mode() == ListMode::Icon;
    const HIMAGELIST handle = m_list->Images(isLarge ? ImageUse::Normal : ImageUse::Small);
    DrawIconPicture(dc, row, handle);
    CRect label;
    if (!m_list || !m_list->RowRect(row, RowPart::Label, label)) return;
    if (!isLarge) label.DeflateRect(kCellTextOffset, 0);
    dc.DrawText(CellText(row, 0), label, isLarge ? kIconTextFormat : kCellTextFormat);
    if (!m_list || !ShowsFocus(row)) return;
    dc.DrawFocusRect(MarkedLabel(dc, row));
}

}  // namespace orvo
