// What the address views do alike around their widgets.
// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

#include <orvoshare/addressviews/AddressInsert.h>
#include <orvoshare/addressviews/DetailViewAddrInf.h>
#include <orvoshare/addressviews/DetailViewCore.h>
#include <orvoshare/addressviews/LookupEdit.h>
#include <orvoshare/addressviews/TypedCharacters.h>
#include <orvoshare/text/RecordIndex.h>
#include <platform/Export.h>

namespace orvo {

// `View` derives from this; `Widget` is the window that shows its items.
template <class View, class Widget>
class ORVO_API AddressViewBase : public Widget,
                                 public CDetailViewAddrInf,
                                 public CDetailViewCore<View> {
public:
    // The records of the items. Who exchanges items past the view does it here, too.
    RecordIndex& Records() { return m_records; }

    void DV_SetEdit(CLookupEdit* pEdit) override { m_pLookupEdit = pEdit; }
    void DV_SetAddressTable(CAddressTable* pTable) override { m_pAddressTable = pTable; }
    int DV_GetListBy() override { return m_nListBy; }
    void DV_SetListBy(int nListBy) override { m_nListBy = nListBy; }
    void DV_SetCategory(int nCategory) override { m_nCategoryShown = nCategory; }
    void DV_FillFromTable(CAddressTable* pTable, int nCategory, int bHidePrivate,
                          int nListBy) override {
        this->DVC_FillFromTable(pTable, nCategory, bHidePrivate, nListBy);
    }
    unsigned DV_GetSelectedCount() override {
        return static_cast<unsigned>(this->GetSelectedCount());
    }
    void DV_SetRedraw(int bRedraw) override { this->SetRedraw(bRedraw); }
    HWND DV_GetHwnd() override { return this->GetSafeHwnd(); }
    int DV_Lookup(CString strKey) override { return this->DVC_Lookup(std::move(strKey)); }
    int DV_ReSort(int nIndex, int nCategory, int bHidePrivate) override {
        return this->DVC_ReSort(nIndex, nCategory, bHidePrivate);
    }
    int DV_Resort() override { return this->DVC_Resort(); }
    int DV_IsPrivateRecordSelected() override { return this->DVC_IsPrivateRecordSelected(); }
    unsigned long DV_GetIndexToInsert(CAddressRecord* pRecord) override {
        return IndexToInsert(*this, pRecord);
    }
    int DV_VerifyCategoryAndPrivate(CAddressRecord* pRecord, int nCategory,
                                    int bHidePrivate) override {
        return this->DVC_VerifyCategoryAndPrivate(pRecord, nCategory, bHidePrivate);
    }
    int DV_VerifyCategoryAndPrivate(int nIndex, int nCategory, int bHidePrivate) override {
        return this->DVC_VerifyCategoryAndPrivate(nIndex, nCategory, bHidePrivate);
    }

protected:
    AddressViewBase() = default;

    // Typed text belongs to the lookup box, and what turns to the view itself empties it.
    void OnChar(UINT character, UINT repeat, UINT flags) {
        if (!m_typed.IsForText(character)) return Widget::OnChar(character, repeat, flags);
        if (m_pLookupEdit) m_pLookupEdit->OnChar(character, repeat, flags);
    }
    void OnKeyDown(UINT key, UINT repeat, UINT flags) {
        if (m_pLookupEdit && CLookupEdit::IsForView(key)) m_pLookupEdit->Clear();
        Widget::OnKeyDown(key, repeat, flags);
    }
    void OnLButtonDown(UINT flags, CPoint point) {
        if (m_pLookupEdit) m_pLookupEdit->Clear();
        Widget::OnLButtonDown(flags, point);
    }

    CLookupEdit* m_pLookupEdit = nullptr;
    CAddressTable* m_pAddressTable = nullptr;
    int m_nCategoryShown = kAllCategories;
    int m_nListBy = -1;
    RecordIndex m_records;

private:
    TypedCharacters m_typed;
};

}  // namespace orvo
