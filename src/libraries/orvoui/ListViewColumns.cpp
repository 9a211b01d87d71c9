// The list widget: its columns, shown or hidden.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <numeric>
#include <utility>

#include <contracts/ListWidget.h>

namespace orvo {

COrvoLVColumn* COrvoUIListViewCtrl::FindColumn(int nId) {
    const auto found =
        std::find_if(m_aColumns.begin(), m_aColumns.end(),
                     [nId](const COrvoLVColumn& column) { return column.nId == nId; });
    return found == m_aColumns.end() ? nullptr : &*found;
}

CString COrvoUIListViewCtrl::ColumnName(int column) {
    const COrvoLVColumn* found = FindColumn(SubItemFromIndex(column));
    return found ? found->strName : CString();
}

int COrvoUIListViewCtrl::IndexFromId(int nId) const {
    const auto found = std::find(m_shownIds.begin(), m_shownIds.end(), nId);
    return found == m_shownIds.end() ? -1 : static_cast<int>(found - m_shownIds.begin());
}

int COrvoUIListViewCtrl::SubItemFromIndex(int column) const {
    const bool isShown = column >= 0 && column < static_cast<int>(m_shownIds.size());
    return isShown ? m_shownIds[static_cast<std::size_t>(column)] : -1;
}

int COrvoUIListViewCtrl::InitializeColumn(const COrvoLVColumn* column) {
    if (!column || FindColumn(column->nId)) return 0;
    m_aColumns.push_back(*column);
    m_aColumns.back().bShown = 0;
    return 1;
}

int COrvoUIListViewCtrl::ShowColumn(int nId, int nWidth) {
    COrvoLVColumn* record = FindColumn(nId);
    if (!record || !GetSafeHwnd()) return 0;
    const int width =
        std::clamp(nWidth == -1 ? record->nWidth : nWidth, kNarrowestColumn, kWidestColumn);
    if (record->bShown != 0) return SetColumnWidth(IndexFromId(nId), width);

    LVCOLUMN content;
    content.mask = LVCF_TEXT | LVCF_FMT | LVCF_WIDTH | LVCF_IMAGE;
    content.pszText = record->strHeading.Bytes().data();
    content.fmt = record->nHeadingImage >= 0 ? LVCFMT_LEFT | LVCFMT_IMAGE : LVCFMT_LEFT;
    content.iImage = record->nHeadingImage;
    content.cx = width;
    if (InsertColumn(static_cast<int>(m_shownIds.size()), content) < 0) return 0;
    m_shownIds.push_back(nId);
    record->bShown = 1;
    ShowSortMark(nId);
    return 1;
}

int COrvoUIListViewCtrl::HideColumn(int nId) {
    COrvoLVColumn* record = FindColumn(nId);
    const int index = IndexFromId(nId);
    if (!record || index < 0 || !GetSafeHwnd()) return 0;
    record->nWidth = GetColumnWidth(index);
    record->bShown = 0;
    m_shownIds.erase(m_shownIds.begin() + index);
    return DeleteColumn(index);
}

int COrvoUIListViewCtrl::RememberWidth(int nId, int nWidth) {
    COrvoLVColumn* record = FindColumn(nId);
    if (!record) return 0;
    record->nWidth = std::clamp(nWidth, kNarrowestColumn, kWidestColumn);
    return 1;
}

int COrvoUIListViewCtrl::UpdateColumnText(int nId, const char* text) {
    COrvoLVColumn* record = FindColumn(nId);
    if (!record) return 0;
    record->strHeading = text;
    LVCOLUMN content;
    content.mask = LVCF_TEXT;
    content.pszText = record->strHeading.Bytes().data();
    if (record->bShown != 0) SetColumn(IndexFromId(nId), content);
    return 1;
}

int COrvoUIListViewCtrl::SetSortOrder(int nId, int) {
    const int before = std::exchange(m_sortColumn, nId);
    ShowSortMark(before);
    ShowSortMark(nId);
    return before;
}

// The rows are always sorted upwards.
void COrvoUIListViewCtrl::ShowSortMark(int nId) {
    const int index = IndexFromId(nId);
    LVCOLUMN content;
    content.mask = LVCF_FMT;
    if (index < 0 ||
        SendMessage(LVM_GETCOLUMN, static_cast<WPARAM>(index), LParamOf(&content)) == 0)
        return;
    content.fmt = nId == m_sortColumn ? content.fmt | HDF_SORTUP : content.fmt & ~HDF_SORTUP;
    SetColumn(index, content);
}

int COrvoUIListViewCtrl::GetMainItemRect(int row, RECT* rect) const {
    CRect place;
    const bool isReport = GetViewMode() == kReportView;
    const int main = m_aColumns.empty() ? -1 : IndexFromId(m_aColumns.front().nId);
    const BOOL stands = isReport ? GetSubItemRect(row, main, LVIR_BOUNDS, &place)
                                 : GetItemRect(row, &place, LVIR_LABEL);
    if (stands) *rect = place;
    return stands;
}

std::vector<int> COrvoUIListViewCtrl::ColumnsOnScreen() const {
    std::vector<int> order(m_shownIds.size());
    std::iota(order.begin(), order.end(), 0);
    // A list without heading leaves the numbers as they are.
    GetColumnOrderArray(order.data(), static_cast<int>(order.size()));
    return order;
}

std::vector<int> COrvoUIListViewCtrl::GetShownColumns() const {
    std::vector<int> ids = ColumnsOnScreen();
    for (int& column : ids) column = SubItemFromIndex(column);
    return ids;
}

UINT COrvoUIListViewCtrl::TextFlags(int column) const {
    LVCOLUMN content;
    content.mask = LVCF_FMT;
    SendMessage(LVM_GETCOLUMN, static_cast<WPARAM>(column), LParamOf(&content));
    const bool isRight = (content.fmt & LVCFMT_RIGHT) != 0;
    return DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS |
           (isRight ? DT_RIGHT : DT_LEFT);
}

}  // namespace orvo
