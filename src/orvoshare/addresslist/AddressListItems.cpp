// The rows of an address list: how they come and go, and what the interface asks of the widget.
// SPDX-License-Identifier: MIT
#include <memory>

#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addressviews/AddrCompare.h>

namespace orvo {

namespace {

// Leaves the placing of an icon to the control.
constexpr CPoint kNoPlace{-1, -1};

}  // namespace

int CDetailViewAddrList::IsRecordPrivate(DWORD data) {
    const CAddressRecord* record = RecordOf(data);
    return record ? record->IsPrivate() : 0;
}

bool CDetailViewAddrList::IsMaskedRow(int row) {
    return IsRowMasked(GetItemData(row));
}

int CDetailViewAddrList::SortByCompare(PFNLVCOMPARE compare, long listBy) {
    return SortItems(compare, listBy);
}

void CDetailViewAddrList::DV_SetListBy(int nListBy) {
    if (nListBy == m_nListBy) return;
    SetSortOrder(nListBy == kListByCompany ? AddressColumn::Company : AddressColumn::Name, 1);
    m_nListBy = nListBy;
}

int CDetailViewAddrList::DV_InsertRecord(int nIndex, CAddressRecord* pRecord, int bSorted) {
    if (!pRecord) return -1;
    std::unique_ptr<CAddressRecord> record(pRecord);
    const bool isPlaced = bSorted != 0 && GetViewMode() != kReportView;
    if (bSorted != 0) nIndex = static_cast<int>(DV_GetIndexToInsert(pRecord));

    CPoint place = kNoPlace;
    // Nothing stands before the first row.
    if (isPlaced && GetItemPosition(nIndex - 1, &place)) place = place + CPoint{1, 1};
    const int row = InsertRecord(nIndex, pRecord, 1, -1);
    if (row < 0) return row;
    m_records.Add(record.release());  // the row's from now on
    if (isPlaced) SetItemPosition(row, place);
    return row;
}

int CDetailViewAddrList::DV_DeleteItem(int nIndex) {
    // The record may be freed now, and its address be given to another.
    ForgetMenuOf(RecordOf(GetItemData(nIndex)));
    m_records.Remove(RecordOf(GetItemData(nIndex)));
    const int result = DeleteItem(nIndex);
    if (GetViewMode() == kReportView) Invalidate();
    return result;
}

void CDetailViewAddrList::DV_DeleteAll() {
    if (DV_GetItemCount() == 0) return;
    DeleteItemData();
    DeleteAllItems();
}

void CDetailViewAddrList::DeleteItemData() {
    m_pMenuRecord = nullptr;
    m_records.Clear();
    const int count = DV_GetItemCount();
    for (int row = 0; row < count; ++row) {
        const std::unique_ptr<CAddressRecord> record(RecordOf(GetItemData(row)));
        // The row can still be painted, or asked for its tip.
        if (record) SetItemData(row, 0);
    }
}

void CDetailViewAddrList::OnDestroy() {
    DeleteItemData();
    COrvoUIListViewCtrl::OnDestroy();
}

int CDetailViewAddrList::DV_SetSortOrder(int nColumn, int nOrder) {
    return SetSortOrder(nColumn, nOrder);
}

int CDetailViewAddrList::DV_GetItemCount() {
    return GetItemCount();
}

unsigned long CDetailViewAddrList::DV_GetItemData(int nIndex) {
    return GetItemData(nIndex);
}

void CDetailViewAddrList::DV_SelectAllItems(int bSelect) {
    SelectAllItems(bSelect);
}

int CDetailViewAddrList::DV_SelectItem(int nIndex, int bSelect) {
    return SelectItem(nIndex, bSelect);
}

void CDetailViewAddrList::DV_SelectAndScroll(int nIndex) {
    SelectAndScroll(nIndex);
}

int CDetailViewAddrList::DV_IsItemSelected(int nIndex) {
    return IsItemSelected(nIndex);
}

int CDetailViewAddrList::DV_GetFirstSelectedItem() {
    return GetFirstSelectedItem();
}

int CDetailViewAddrList::DV_GetFocusedItem() {
    return GetFocusedItem();
}

POSITION CDetailViewAddrList::DV_GetFirstSelectedItemPosition() {
    return GetFirstSelectedItemPosition();
}

int CDetailViewAddrList::DV_GetNextSelectedItem(POSITION& pos) {
    return GetNextSelectedItem(pos);
}

int CDetailViewAddrList::DV_Update(int nIndex) {
    return Update(nIndex);
}

int CDetailViewAddrList::DV_EnsureVisible(int nIndex, int bPartialOK) {
    return EnsureVisible(nIndex, bPartialOK);
}

int CDetailViewAddrList::DV_FindItemByData(long lData) {
    return FindItemByData(lData);
}

void CDetailViewAddrList::DV_SetMaskPrivate(int bMask) {
    SetMaskPrivate(bMask);
}

}  // namespace orvo
