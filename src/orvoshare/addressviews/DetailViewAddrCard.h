// CDetailViewAddrCard: addresses as business cards.
// SPDX-License-Identifier: MIT
#pragma once

#include <contracts/CardWidget.h>
#include <orvoshare/addressviews/AddressViewBase.h>
#include <platform/Export.h>

namespace orvo {

// The commands to the parent window, as WM_COMMAND. That of the selection is sent, the others are
// posted.
constexpr UINT ID_DV_RETURN_KEY = 1628;
constexpr UINT ID_DV_SELECTION_CHANGED = 1629;
constexpr UINT ID_DV_ITEM_DBLCLK = 1630;
constexpr UINT ID_DV_ITEM_RCLICK = 1631;
constexpr UINT ID_DV_BACKGROUND_RCLICK = 1632;

class ORVO_API CDetailViewAddrCard : public AddressViewBase<CDetailViewAddrCard, COrvoUICardView> {
public:
    CDetailViewAddrCard();
    ~CDetailViewAddrCard() override;

    // Takes the table, which stays the host's, and makes room for its labels.
    // Returns:  1.
    int Initialize(CAddressTable* pTable);

    // Restores, and saves, the size of the cards under the section of the user's profile.
    // Returns:  1 on success; 0 for a null section, or where no size is saved.
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

    int DV_SetSortOrder(int, int) override { return 0; }
    int DV_InsertRecord(int nIndex, CAddressRecord* pRecord, int bSorted) override;
    int DV_DeleteItem(int nIndex) override;
    void DV_DeleteAll() override;
    int DV_GetItemCount() override;
    unsigned long DV_GetItemData(int nIndex) override;
    void DV_SelectAllItems(int bSelect) override;
    int DV_SelectItem(int nIndex, int bSelect) override;
    void DV_SelectAndScroll(int nIndex) override;
    int DV_IsItemSelected(int nIndex) override;
    int DV_GetFirstSelectedItem() override;
    int DV_GetFocusedItem() override;
    POSITION DV_GetFirstSelectedItemPosition() override;
    int DV_GetNextSelectedItem(POSITION& pos) override;
    int DV_Update(int nIndex) override;
    int DV_EnsureVisible(int nIndex, int bPartialOK) override;
    int DV_FindItemByData(long lData) override;
    void DV_SetMaskPrivate(int bMask) override;

protected:
    // Frees the records of all cards; the cards stay.
    void DeleteItemData();

    void OnDestroy();

    void OnCardLButtonDblClk(int index, CPoint point) override;
    void OnCardOnRButtonDown(int index, CPoint point) override;
    void OnCardSelected(int index, int selected) override;
    void OnCardReturnKey() override;

private:
    friend class CDetailViewCore<CDetailViewAddrCard>;

    int SortByCompare(PFNLVCOMPARE compare, long listBy);
    void PostToParent(UINT command);

    int m_bMaskPrivate = 0;
};

}  // namespace orvo
