// CDetailViewAddrList: addresses as a list with columns, or as icons.
// SPDX-License-Identifier: MIT
#include <contracts/ResourceScope.h>
#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addressviews/AddressOrder.h>
#include <orvoshare/module/OrvoShareModule.h>

namespace orvo {
namespace {

constexpr unsigned kPrivateBitmap = 1000;
constexpr unsigned kNoteBitmap = 1001;
constexpr unsigned kHandCursor = 1003;

}  // namespace

CDetailViewAddrList::CDetailViewAddrList() {
    RegisterAddressSortKeys();
    const CDllResourceHandler resources(OrvoShareRecord());
    m_bmpPrivate.LoadBitmap(kPrivateBitmap);
    m_bmpNote.LoadBitmap(kNoteBitmap);
    m_nBitmapHeight = m_bmpPrivate.Size().cy;
    m_hHandCursor = LoadCursor(kHandCursor);
}

// Here OnDestroy is still in reach, which frees the records of the rows; in the destructor of the
// control it isn't.
CDetailViewAddrList::~CDetailViewAddrList() {
    DestroyWindow();
}

}  // namespace orvo
