// CListCtrl: its functions, which send messages, and its life.
// SPDX-License-Identifier: MIT
#include <array>

#include <platform/window/base/WindowSystem.h>
#include <platform/window/list/CListCtrl.h>

namespace orvo {

namespace {

// Messages carry texts as char*, and only read those that are set.
char* TextArgument(const char* text) {
    return const_cast<char*>(text);
}

}  // namespace

CListCtrl::~CListCtrl() {
    DestroyWindow();
}

std::unique_ptr<WindowPeer> CListCtrl::MakePeer(WindowSystem& system, const PeerPlace& place) {
    return system.MakeListPeer(place);
}

bool CListCtrl::TakePeer(WindowPeer& peer) {
    m_list = dynamic_cast<ListPeer*>(&peer);
    if (m_list) m_list->SetClient(this);
    return m_list != nullptr;
}

void CListCtrl::LosePeer() {
    if (m_list) m_list->SetClient(nullptr);
    m_list = nullptr;
}

void CListCtrl::ModifyStyle(DWORD remove, DWORD add) {
    CWnd::ModifyStyle(remove, add);
    if (((remove | add) & LVS_TYPEMASK) != 0) SetView(static_cast<int>(GetStyle() & LVS_TYPEMASK));
}

int CListCtrl::InsertItem(int row, const char* text) {
    LVITEM item;
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.pszText = TextArgument(text);
    return InsertItem(item);
}

DWORD CListCtrl::GetItemData(int row) const {
    LVITEM item;
    item.mask = LVIF_PARAM;
    item.iItem = row;
    Ask(LVM_GETITEM, 0, LParamOf(&item));
    return static_cast<DWORD>(item.lParam);
}

BOOL CListCtrl::SetItemData(int row, DWORD data) {
    LVITEM item;
    item.mask = LVIF_PARAM;
    item.iItem = row;
    item.lParam = static_cast<LPARAM>(data);
    return SetItem(item);
}

CString CListCtrl::GetItemText(int row, int column) const {
    constexpr int kLongestText = 4096;
    std::array<char, kLongestText> buffer{};
    LVITEM item;
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.iSubItem = column;
    item.pszText = buffer.data();
    item.cchTextMax = kLongestText;
    Ask(LVM_GETITEM, 0, LParamOf(&item));
    return CString(buffer.data());
}

BOOL CListCtrl::SetItemText(int row, int column, const char* text) {
    LVITEM item;
    item.iSubItem = column;
    item.pszText = TextArgument(text);
    return Ask(LVM_SETITEMTEXT, Number(row), LParamOf(&item));
}

int CListCtrl::FindItem(const LVFINDINFO& wanted, int after) const {
    return GetSafeHwnd() ? Ask(LVM_FINDITEM, Number(after), LParamOf(&wanted)) : -1;
}

UINT CListCtrl::GetItemState(int row, UINT mask) const {
    return static_cast<UINT>(Ask(LVM_GETITEMSTATE, Number(row), mask));
}

BOOL CListCtrl::SetItemState(int row, UINT state, UINT mask) {
    LVITEM item;
    item.state = state;
    item.stateMask = mask;
    return Ask(LVM_SETITEMSTATE, Number(row), LParamOf(&item));
}

int CListCtrl::GetNextItem(int after, UINT flags) const {
    return GetSafeHwnd() ? Ask(LVM_GETNEXTITEM, Number(after), flags) : -1;
}

// A position is the row's number and 1, so that none is null.
POSITION CListCtrl::GetFirstSelectedItemPosition() const {
    return PointerOf<PositionMark>(GetNextItem(-1, LVNI_SELECTED) + 1);
}

int CListCtrl::GetNextSelectedItem(POSITION& position) const {
    const int row = static_cast<int>(LParamOf(position)) - 1;
    if (row >= 0) position = PointerOf<PositionMark>(GetNextItem(row, LVNI_SELECTED) + 1);
    return row;
}

int CListCtrl::InsertColumn(int column, const LVCOLUMN& content) {
    return Ask(LVM_INSERTCOLUMN, Number(column), LParamOf(&content));
}

int CListCtrl::InsertColumn(int column, const char* heading, int format, int width) {
    LVCOLUMN content;
    content.mask = LVCF_TEXT | LVCF_FMT | LVCF_WIDTH;
    content.pszText = TextArgument(heading);
    content.fmt = format;
    content.cx = width;
    return InsertColumn(column, content);
}

BOOL CListCtrl::SetColumn(int column, const LVCOLUMN& content) {
    return Ask(LVM_SETCOLUMN, Number(column), LParamOf(&content));
}

BOOL CListCtrl::SetColumnWidth(int column, int width) {
    return Ask(LVM_SETCOLUMNWIDTH, Number(column), width);
}

BOOL CListCtrl::GetColumnOrderArray(int* order, int count) const {
    const int columns = m_list ? m_list->ColumnCount() : 0;
    return Ask(LVM_GETCOLUMNORDERARRAY, Number(count < 0 ? columns : count), LParamOf(order));
}

BOOL CListCtrl::SetColumnOrderArray(int count, const int* order) {
    return Ask(LVM_SETCOLUMNORDERARRAY, Number(count), LParamOf(order));
}

CHeaderCtrl* CListCtrl::GetHeaderCtrl() {
    if (!m_list || (GetStyle() & LVS_NOCOLUMNHEADER) != 0) return nullptr;
    if (!m_header.GetSafeHwnd()) m_header.CreateFor(*m_list, this);
    return &m_header;
}

HIMAGELIST CListCtrl::SetImageList(const CImageList* images, int use) {
    const HIMAGELIST handle = images ? images->GetSafeHandle() : nullptr;
    return PointerOf<ImageListHandle>(SendMessage(LVM_SETIMAGELIST, Number(use), LParamOf(handle)));
}

CImageList* CListCtrl::GetImageList(int use) const {
    return CImageList::FromHandle(
        PointerOf<ImageListHandle>(SendMessage(LVM_GETIMAGELIST, Number(use))));
}

BOOL CListCtrl::GetItemRect(int row, CRect* rect, int part) const {
    rect->left = part;
    return Ask(LVM_GETITEMRECT, Number(row), LParamOf(rect));
}

BOOL CListCtrl::GetSubItemRect(int row, int column, int part, CRect* rect) const {
    *rect = {part, column, 0, 0};
    return Ask(LVM_GETSUBITEMRECT, Number(row), LParamOf(rect));
}

int CListCtrl::HitTest(CPoint point, UINT* flags) const {
    LVHITTESTINFO hit;
    hit.pt = point;
    HitTest(&hit);
    if (flags) *flags = hit.flags;
    return hit.iItem;
}

int CListCtrl::SubItemHitTest(LVHITTESTINFO* hit) const {
    hit->iItem = -1;
    return GetSafeHwnd() ? Ask(LVM_SUBITEMHITTEST, 0, LParamOf(hit)) : -1;
}

BOOL CListCtrl::GetItemPosition(int row, CPoint* position) const {
    return Ask(LVM_GETITEMPOSITION, Number(row), LParamOf(position));
}

BOOL CListCtrl::SetItemPosition(int row, CPoint position) {
    return Ask(LVM_SETITEMPOSITION32, Number(row), LParamOf(&position));
}

BOOL CListCtrl::EnsureVisible(int row, BOOL partlyIsEnough) {
    return Ask(LVM_ENSUREVISIBLE, Number(row), partlyIsEnough);
}

BOOL CListCtrl::SortItems(PFNLVCOMPARE compare, LPARAM argument) {
    return Ask(LVM_SORTITEMS, static_cast<WPARAM>(argument), reinterpret_cast<LPARAM>(compare));
}

}  // namespace orvo
