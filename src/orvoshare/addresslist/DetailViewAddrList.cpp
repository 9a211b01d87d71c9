// CDetailViewAddrList: addresses as a list with columns, or as icons.
// SPDX-License-Identifier: MIT
#include <contracts/ResourceScope.h>
#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addressviews/AddressOrder.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/ResourceTable.h>

namespace orvo {
CDetailViewAddrList::CDetailViewAddrList() {
    RegisterAddressSortKeys();
    const CDllResourceHandler resources(OrvoShareRecord());
    m_bmpPrivate.LoadBitmap(kBitmapPrivate);
    m_bmpNote.LoadBitmap(kBitmapNote);
    m_nBitmapHeight = m_bmpPrivate.Size().cy;
    m_hHandCursor = LoadCursor(kCursorHand);
}

// Here OnDestroy is still in reach, which frees the records of the rows; in the destructor of the
// control it isn't.
CDetailViewAddrList::~CDetailViewAddrList() {
    DestroyWindow();
}

}  // namespace orvo
