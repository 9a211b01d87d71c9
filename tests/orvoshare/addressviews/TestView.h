// A plain address view over real rows, for what all views have in common.
// SPDX-License-Identifier: MIT
#pragma once

#include <orvoshare/addressviews/AddrCompare.h>
#include <orvoshare/addressviews/AddressOrder.h>
#include <orvoshare/addressviews/DetailViewCore.h>
#include <orvoshare/addressviews/LookupEdit.h>
#include <orvoshare/text/SortedInsert.h>
#include <platform/window/CListCtrl.h>

namespace orvo {

class TestView : public CListCtrl, public CDetailViewAddrInf, public CDetailViewCore<TestView> {
public:
    TestView() { RegisterAddressSortKeys(); }
    ~TestView() override { DestroyWindow(); }

    using CDetailViewCore<TestView>::DVC_FindFirstMatch;
    using CDetailViewCore<TestView>::DVC_IsInSortedPosition;
    using CDetailViewCore<TestView>::DVC_GetItemKey;
    using CDetailViewCore<TestView>::DVC_GetItemYomiKey;

    static const MessageMap& ThisMap() {
        static const MessageMap map{
            CListCtrl::ThisMap(),
            {On<WM_CHAR>(&TestView::OnChar), On<WM_KEYDOWN>(&TestView::OnKeyDown),
             On<WM_DESTROY>(&TestView::OnDestroy)}};
        return map;
    }
    const MessageMap& GetMessageMap() const override { return ThisMap(); }

    int sorts = 0;
    int lookups = 0;
    bool redraws = true;
    CAddressTable* table = nullptr;
    int category = kAllCategories;
    int masks = 0;
    int GetMaskPrivate() const { return masks; }

    void DV_SetEdit(CLookupEdit* pEdit) override { m_edit = pEdit; }
    void DV_SetAddressTable(CAddressTable* pTable) override { table = pTable; }
    int DV_GetListBy() override { return m_listBy; }
    void DV_SetListBy(int nListBy) override { m_listBy = nListBy; }
    int DV_SetSortOrder(int, int) override { return 0; }
    void DV_SetCategory(int nCategory) override { category = nCategory; }
    int DV_InsertRecord(int nIndex, CAddressRecord* pRecord, int bSorted) override {
        if (!pRecord) return -1;
        LVITEM item;
        item.mask = LVIF_PARAM;
        item.iItem = bSorted ? static_cast<int>(DV_GetIndexToInsert(pRecord)) : nIndex;
        item.lParam = reinterpret_cast<long>(pRecord);
        return InsertItem(item);
    }
    void DV_FillFromTable(CAddressTable* pTable, int nCategory, int bHidePrivate,
                          int nListBy) override {
        DVC_FillFromTable(pTable, nCategory, bHidePrivate, nListBy);
    }
    int DV_DeleteItem(int nIndex) override { return DeleteItem(nIndex); }
    void DV_DeleteAll() override {
        FreeRecords();
        DeleteAllItems();
    }
    int DV_GetItemCount() override { return GetItemCount(); }
    unsigned long DV_GetItemData(int nIndex) override { return GetItemData(nIndex); }
    unsigned DV_GetSelectedCount() override { return static_cast<unsigned>(GetSelectedCount()); }
    void DV_SelectAllItems(int bSelect) override { DV_SelectItem(-1, bSelect); }
    int DV_SelectItem(int nIndex, int bSelect) override {
        return SetItemState(nIndex, bSelect ? LVIS_SELECTED : 0, LVIS_SELECTED);
    }
    void DV_SelectAndScroll(int nIndex) override { DV_SelectItem(nIndex, 1); }
    int DV_IsItemSelected(int nIndex) override {
        return GetItemState(nIndex, LVIS_SELECTED) != 0 ? 1 : 0;
    }
    int DV_GetFirstSelectedItem() override { return GetNextItem(-1, LVNI_SELECTED); }
    int DV_GetFocusedItem() override { return GetNextItem(-1, LVNI_FOCUSED); }
    POSITION DV_GetFirstSelectedItemPosition() override { return GetFirstSelectedItemPosition(); }
    int DV_GetNextSelectedItem(POSITION& pos) override { return GetNextSelectedItem(pos); }
    int DV_Update(int nIndex) override { return Update(nIndex); }
    void DV_SetRedraw(int bRedraw) override {
        redraws = bRedraw != 0;
        SetRedraw(bRedraw);
    }
    int DV_EnsureVisible(int nIndex, int bPartialOK) override {
        return EnsureVisible(nIndex, bPartialOK);
    }
    HWND DV_GetHwnd() override { return GetSafeHwnd(); }
    int DV_Lookup(CString strKey) override {
        ++lookups;
        return DVC_Lookup(strKey);
    }
    int DV_FindItemByData(long lData) override {
        LVFINDINFO wanted;
        wanted.flags = LVFI_PARAM;
        wanted.lParam = lData;
        return FindItem(wanted);
    }
    int DV_ReSort(int nIndex, int nCategory, int bHidePrivate) override {
        return DVC_ReSort(nIndex, nCategory, bHidePrivate);
    }
    void DV_SetMaskPrivate(int) override {}
    int DV_Resort() override { return DVC_Resort(); }
    int DV_IsPrivateRecordSelected() override { return DVC_IsPrivateRecordSelected(); }
    unsigned long DV_GetIndexToInsert(CAddressRecord* pRecord) override {
        if (GetItemCount() == 0) return 0;
        const auto last = static_cast<unsigned long>(GetItemCount() - 1);
        return GetSortedIndexToInsert(0, last, reinterpret_cast<long>(pRecord), &CompareRow,
                                      reinterpret_cast<long>(this));
    }
    int DV_VerifyCategoryAndPrivate(CAddressRecord* pRecord, int nCategory,
                                    int bHidePrivate) override {
        return DVC_VerifyCategoryAndPrivate(pRecord, nCategory, bHidePrivate);
    }
    int DV_VerifyCategoryAndPrivate(int nIndex, int nCategory, int bHidePrivate) override {
        return DVC_VerifyCategoryAndPrivate(nIndex, nCategory, bHidePrivate);
    }

    int SortByCompare(PFNLVCOMPARE compare, long listBy) {
        ++sorts;
        return SortItems(compare, listBy);
    }

private:
    static int CompareRow(long row, long key, long context) {
        auto& view = *reinterpret_cast<TestView*>(context);
        const auto data = static_cast<long>(view.GetItemData(static_cast<int>(row)));
        return AddrCompareFunc(data, key, view.m_listBy);
    }
    void OnChar(UINT character, UINT repeat, UINT flags) {
        if (m_edit) m_edit->OnChar(character, repeat, flags);
    }
    void OnKeyDown(UINT key, UINT repeat, UINT flags) {
        const bool moves = key == VK_PRIOR || key == VK_NEXT || key == VK_UP || key == VK_DOWN;
        if (m_edit && moves) m_edit->Clear();
        CListCtrl::OnKeyDown(key, repeat, flags);
    }
    void OnDestroy() {
        FreeRecords();
        CListCtrl::OnDestroy();
    }
    void FreeRecords() {
        for (int row = 0; row < GetItemCount(); ++row) delete RecordOf(GetItemData(row));
    }

    CLookupEdit* m_edit = nullptr;
    int m_listBy = -1;
};

}  // namespace orvo
