// CDetailViewAddrCard: addresses as business cards.
// SPDX-License-Identifier: MIT
#pragma once

#include <contracts/CardWidget.h>
#include <orvoshare/addressviews/DetailViewAddrInf.h>
#include <orvoshare/addressviews/DetailViewCore.h>
#include <orvoshare/addressviews/TypedCharacters.h>
#include <platform/Export.h>

namespace orvo {

// The commands to the parent window, as WM_COMMAND. That of the selection is sent, the others are
// posted.
constexpr UINT ID_DV_RETURN_KEY = 1628;
constexpr UINT ID_DV_SELECTION_CHANGED = 1629;
constexpr UINT ID_DV_ITEM_DBLCLK = 1630;
constexpr UINT ID_DV_ITEM_RCLICK = 1631;
constexpr UINT ID_DV_BACKGROUND_RCLICK = 1632;

class ORVO_API CDetailViewAddrCard : public COrvoUICardView,
                                     public CDetailViewAddrInf,
                                     public CDetailViewCore<CDetailViewAddrCard> {
public:
    CDetailViewAddrCard();
    ~CDetailViewAddrCard() override;

    // Takes the table, which stays the host's, and makes room for its labels.
    // Gives:  1.
    int Initialize(CAddressTable* pTable);

    // Restores, and saves, the size of the cards under the section of the user's profile.
    // Gives:  1 on success; 0 for a null section, or where no size is saved.
    int ReadCardSize(const char* pszSection);
    int WriteCardSize(const char* pszSection);

    // Where values begin for the labels of the table as they are now, in characters; 0 without a
    // table.
    int ComputeTabPosition();

    int GetMaskPrivate() const { return m_bMaskPrivate; }

    // What the card says, made anew from the record at each call; without a record the description
    // stays as it is.
    void GetCardDescription(int index, CCardDesc& description) override;

    static const MessageMap& ThisMap();
    const MessageMap& GetMessageMap() const override { return ThisMap(); }

    void DV_SetEdit(CLookupEdit* pEdit) override { m_pLookupEdit = pEdit; }
    void DV_SetAddressTable(CAddressTable* pTable) override { m_pAddressTable = pTable; }
    int DV_GetListBy() override { return m_nListBy; }
    void DV_SetListBy(int nListBy) override { m_nListBy = nListBy; }
    int DV_SetSortOrder(int, int) override { return 0; }
    void DV_SetCategory(int nCategory) override { m_nCategoryShown = nCategory; }
    int DV_InsertRecord(int nIndex, CAddressRecord* pRecord, int bSorted) override;
    void DV_FillFromTable(CAddressTable* pTable, int nCategory, int bHidePrivate,
                          int nListBy) override;
    int DV_DeleteItem(int nIndex) override;
    void DV_DeleteAll() override;
    int DV_GetItemCount() override;
    unsigned long DV_GetItemData(int nIndex) override;
    unsigned DV_GetSelectedCount() override;
    void DV_SelectAllItems(int bSelect) override;
    int DV_SelectItem(int nIndex, int bSelect) override;
    void DV_SelectAndScroll(int nIndex) override;
    int DV_IsItemSelected(int nIndex) override;
    int DV_GetFirstSelectedItem() override;
    int DV_GetFocusedItem() override;
    POSITION DV_GetFirstSelectedItemPosition() override;
    int DV_GetNextSelectedItem(POSITION& pos) override;
    int DV_Update(int nIndex) override;
    void DV_SetRedraw(int bRedraw) override;
    int DV_EnsureVisible(int nIndex, int bPartialOK) override;
    HWND DV_GetHwnd() override;
    int DV_Lookup(CString strKey) override;
    int DV_FindItemByData(long lData) override;
    int DV_ReSort(int nIndex, int nCategory, int bHidePrivate) override;
    void DV_SetMaskPrivate(int bMask) override;
    int DV_Resort() override;
    int DV_IsPrivateRecordSelected() override;
    unsigned long DV_GetIndexToInsert(CAddressRecord* pRecord) override;
    int DV_VerifyCategoryAndPrivate(CAddressRecord* pRecord, int nCategory,
                                    int bHidePrivate) override;
    int DV_VerifyCategoryAndPrivate(int nIndex, int nCategory, int bHidePrivate) override;

protected:
    // Frees the records of all cards; the cards stay.
    void DeleteItemData();

    void OnDestroy();
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnLButtonDown(UINT flags, CPoint point);

    void OnCardLButtonDblClk(int index, CPoint point) override;
    void OnCardOnRButtonDown(int index, CPoint point) override;
    void OnCardSelected(int index, int selected) override;
    void OnCardReturnKey() override;

private:
    friend class CDetailViewCore<CDetailViewAddrCard>;

    int SortByCompare(PFNLVCOMPARE compare, long listBy);
    void PostToParent(UINT command);

    CLookupEdit* m_pLookupEdit = nullptr;
    int m_nCategoryShown = kAllCategories;
    CAddressTable* m_pAddressTable = nullptr;
    int m_nListBy = -1;
    int m_bMaskPrivate = 0;
    TypedCharacters m_typed;
};

}  // namespace orvo
