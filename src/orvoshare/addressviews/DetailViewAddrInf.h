// The one interface through which a host and the lookup box drive an address view.
// SPDX-License-Identifier: MIT
#pragma once

#include <contracts/RecordStore.h>
#include <platform/Export.h>
#include <platform/text/Arrays.h>
#include <platform/window/base/Messages.h>

namespace orvo {

class CLookupEdit;

// Indices are positions in the current order, from 0; -1 stands for none. An item's data word is
// the address of its CAddressRecord; 0 and -1 stand for no record.
//
// A host constructs the view and its window, calls the view's own Initialize, connects view and
// lookup box (DV_SetEdit and CLookupEdit::SetListBox) before the first key or click, sets the
// masking, and fills the view. The view owns the records of its items; the table must outlive them.
class CDetailViewAddrInf {
public:
    // Stores the lookup box, which the host owns.
    virtual void DV_SetEdit(CLookupEdit* pEdit) = 0;

    // Stores the table; nothing is read.
    virtual void DV_SetAddressTable(CAddressTable* pTable) = 0;

    // The listing order: 0 by company, any other value by name; -1 until the first fill.
    virtual int DV_GetListBy() = 0;

    // The items stay where they are until DV_Resort or a fill.
    virtual void DV_SetListBy(int nListBy) = 0;

    virtual int DV_SetSortOrder(int nColumn, int nOrder) = 0;

    // Stores the category, 16 for all; the items stay.
    virtual void DV_SetCategory(int nCategory) = 0;

    // Puts a new item at `nIndex`, or with `bSorted` where the order wants it.
    // Returns:  the new item's index; -1 for null, or where the item can't be put there.
    // Owner:    the view, from the call on; with -1 the record is gone.
    virtual int DV_InsertRecord(int nIndex, CAddressRecord* pRecord, int bSorted) = 0;

    // Empties the view and fills it with the table's records of the category (16: of all) that
    // aren't archived, and with `bHidePrivate` not private either. A null table leaves it empty.
    virtual void DV_FillFromTable(CAddressTable* pTable, int nCategory, int bHidePrivate,
                                  int nListBy) = 0;

    // Removes the item.
    // Owner:    the caller has the record now, for which it has asked before.
    virtual int DV_DeleteItem(int nIndex) = 0;

    // Removes all items and frees their records.
    virtual void DV_DeleteAll() = 0;

    virtual int DV_GetItemCount() = 0;
    virtual unsigned long DV_GetItemData(int nIndex) = 0;
    virtual unsigned DV_GetSelectedCount() = 0;
    virtual void DV_SelectAllItems(int bSelect) = 0;
    virtual int DV_SelectItem(int nIndex, int bSelect) = 0;
    virtual void DV_SelectAndScroll(int nIndex) = 0;
    virtual int DV_IsItemSelected(int nIndex) = 0;
    virtual int DV_GetFirstSelectedItem() = 0;
    virtual int DV_GetFocusedItem() = 0;

    // A walk over the selection: null where nothing, or nothing more, is selected.
    virtual POSITION DV_GetFirstSelectedItemPosition() = 0;
    virtual int DV_GetNextSelectedItem(POSITION& pos) = 0;

    // Redraws one item after its record has changed.
    virtual int DV_Update(int nIndex) = 0;
    virtual void DV_SetRedraw(int bRedraw) = 0;
    virtual int DV_EnsureVisible(int nIndex, int bPartialOK) = 0;
    virtual HWND DV_GetHwnd() = 0;

    // The first item whose key, its name as the listing order has it, starts with the text, by the
    // rules of the system's locale, whatever its case, accents and kana form; -1 where there is
    // none.
    virtual int DV_Lookup(CString strKey) = 0;

    virtual int DV_FindItemByData(long lData) = 0;

    // Re-checks an item whose record has changed. One that no longer belongs in the view goes, and
    // its record is freed; one that sorts elsewhere now is put there and selected.
    // Returns:  the item's index now; -1 where it went or there was none.
    virtual int DV_ReSort(int nIndex, int nCategory, int bHidePrivate) = 0;

    virtual void DV_SetMaskPrivate(int bMask) = 0;

    // Sorts all items by the listing order.
    virtual int DV_Resort() = 0;

    virtual int DV_IsPrivateRecordSelected() = 0;

    // The index at which the record belongs in the current order.
    virtual unsigned long DV_GetIndexToInsert(CAddressRecord* pRecord) = 0;

    // 1 where the record, or that of an item, may be shown under these settings, else 0.
    virtual int DV_VerifyCategoryAndPrivate(CAddressRecord* pRecord, int nCategory,
                                            int bHidePrivate) = 0;
    virtual int DV_VerifyCategoryAndPrivate(int nIndex, int nCategory, int bHidePrivate) = 0;

protected:
    ~CDetailViewAddrInf() = default;  // a view is deleted as what it is
};

// The record behind a data word; null where there is none.
inline CAddressRecord* RecordOf(unsigned long data) {
    constexpr unsigned long kNone = ~0UL;
    return data == 0 || data == kNone ? nullptr : reinterpret_cast<CAddressRecord*>(data);
}

}  // namespace orvo
