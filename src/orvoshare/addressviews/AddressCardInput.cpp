// The user's keys and clicks in the card view, and what is reported of them to the parent window.
// SPDX-License-Identifier: MIT
#include <orvoshare/addressviews/DetailViewAddrCard.h>

namespace orvo {

const MessageMap& CDetailViewAddrCard::ThisMap() {
    static const MessageMap map{
        COrvoUICardView::ThisMap(),
        {On<WM_DESTROY>(&CDetailViewAddrCard::OnDestroy),
         On<WM_KEYDOWN>(&CDetailViewAddrCard::OnKeyDown), On<WM_CHAR>(&CDetailViewAddrCard::OnChar),
         On<WM_LBUTTONDOWN>(&CDetailViewAddrCard::OnLButtonDown)}};
    return map;
}

void CDetailViewAddrCard::OnDestroy() {
    DeleteItemData();
    // A card can still be painted until the window is gone.
    DeleteAllCards(1);
    COrvoUICardView::OnDestroy();
}

void CDetailViewAddrCard::PostToParent(UINT command) {
    if (const CWnd* parent = GetParent()) parent->PostMessage(WM_COMMAND, command);
}

void CDetailViewAddrCard::OnCardReturnKey() {
    PostToParent(ID_DV_RETURN_KEY);
}

void CDetailViewAddrCard::OnCardLButtonDblClk(int, CPoint) {
    PostToParent(ID_DV_ITEM_DBLCLK);
}

void CDetailViewAddrCard::OnCardOnRButtonDown(int index, CPoint) {
    PostToParent(index == -1 ? ID_DV_BACKGROUND_RCLICK : ID_DV_ITEM_RCLICK);
}

void CDetailViewAddrCard::OnCardSelected(int, int) {
    if (const CWnd* parent = GetParent()) parent->SendMessage(WM_COMMAND, ID_DV_SELECTION_CHANGED);
}

}  // namespace orvo
