// CDetailViewAddrCard: addresses as business cards.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>

#include <contracts/Profile.h>
#include <contracts/ResourceScope.h>
#include <orvoshare/addressviews/AddressOrder.h>
#include <orvoshare/addressviews/DetailViewAddrCard.h>
#include <orvoshare/module/OrvoShareModule.h>

namespace orvo {
namespace {

constexpr const char* kWidthKey = "BusCardWidth";
constexpr const char* kHeightKey = "BusCardHeight";

// What stands between the longest label and the values, in characters.
constexpr int kTabGap = 4;

}  // namespace

CDetailViewAddrCard::CDetailViewAddrCard() {
    RegisterAddressSortKeys();
}

CDetailViewAddrCard::~CDetailViewAddrCard() {
    // Here, as the records are freed by this class's handler.
    DestroyWindow();
}

int CDetailViewAddrCard::Initialize(CAddressTable* pTable) {
    m_pAddressTable = pTable;
    const int tabStop = ComputeTabPosition();
    if (tabStop > 0) SetTabStop(tabStop);
    return 1;
}

int CDetailViewAddrCard::ComputeTabPosition() {
    if (m_pAddressTable == nullptr) return 0;
    int longest = 0;
    for (int id = 0; id < m_pAddressTable->GetPhoneLabelCount(); ++id) {
        longest = std::max(longest, m_pAddressTable->GetPhoneLabel(id).GetLength());
    }
    for (int number = 1; number <= kCustomFields; ++number) {
        longest = std::max(longest, m_pAddressTable->GetCustomLabel(number).GetLength());
    }
    return longest + kTabGap;
}

int CDetailViewAddrCard::ReadCardSize(const char* pszSection) {
    if (pszSection == nullptr) return 0;
    const CDllResourceHandler resources(OrvoShareRecord());
    const auto width = static_cast<int>(OUIGetProfileInt(pszSection, kWidthKey, 0));
    const auto height = static_cast<int>(OUIGetProfileInt(pszSection, kHeightKey, 0));
    if (width == 0 || height == 0) return 0;
    SetCardSize(width, height, 1);
    return 1;
}

int CDetailViewAddrCard::WriteCardSize(const char* pszSection) {
    if (pszSection == nullptr) return 0;
    const CDllResourceHandler resources(OrvoShareRecord());
    int width = 0;
    int height = 0;
    GetCardSize(&width, &height);
    OUIWriteProfileInt(pszSection, kWidthKey, width);
    OUIWriteProfileInt(pszSection, kHeightKey, height);
    return 1;
}

int CDetailViewAddrCard::SortByCompare(PFNLVCOMPARE compare, long listBy) {
    return SortItems(compare, static_cast<unsigned long>(listBy));
}

int CDetailViewAddrCard::DV_InsertRecord(int nIndex, CAddressRecord* pRecord, int bSorted) {
    if (pRecord == nullptr) return -1;
    if (bSorted != 0) nIndex = static_cast<int>(DV_GetIndexToInsert(pRecord));
    std::unique_ptr<CAddressRecord> record(pRecord);
    const int count = GetCardCount();
    InsertCard(nIndex, pRecord, 1);
    if (GetCardCount() == count) return -1;
    m_records.Add(record.release());  // the card's from now on
    return std::min(nIndex, count);
}

int CDetailViewAddrCard::DV_DeleteItem(int nIndex) {
    m_records.Remove(RecordOf(DV_GetItemData(nIndex)));
    DeleteCard(nIndex, 1);
    return 1;
}

void CDetailViewAddrCard::DV_DeleteAll() {
    if (GetCardCount() == 0) return;
    DeleteItemData();
    DeleteAllCards(1);
}

void CDetailViewAddrCard::DeleteItemData() {
    m_records.Clear();
    const int count = DV_GetItemCount();
    for (int index = 0; index < count; ++index) {
        const std::unique_ptr<CAddressRecord> record(RecordOf(DV_GetItemData(index)));
    }
}

int CDetailViewAddrCard::DV_GetItemCount() {
    return GetCardCount();
}

unsigned long CDetailViewAddrCard::DV_GetItemData(int nIndex) {
    return reinterpret_cast<unsigned long>(GetCardData(nIndex));
}

void CDetailViewAddrCard::DV_SelectAllItems(int bSelect) {
    SelectAllCards(bSelect, 1);
}

int CDetailViewAddrCard::DV_SelectItem(int nIndex, int bSelect) {
    SelectCard(nIndex, bSelect, 1);
    return 1;
}

void CDetailViewAddrCard::DV_SelectAndScroll(int nIndex) {
    SelectAndScrollCard(nIndex, 1);
}

int CDetailViewAddrCard::DV_IsItemSelected(int nIndex) {
    return IsCardSelected(nIndex);
}

int CDetailViewAddrCard::DV_GetFirstSelectedItem() {
    return GetFirstSelectedCardIndex();
}

int CDetailViewAddrCard::DV_GetFocusedItem() {
    return GetFocusCardIndex();
}

POSITION CDetailViewAddrCard::DV_GetFirstSelectedItemPosition() {
    return GetFirstSelectedCardPosition();
}

int CDetailViewAddrCard::DV_GetNextSelectedItem(POSITION& pos) {
    return GetNextSelectedCardIndex(pos);
}

int CDetailViewAddrCard::DV_Update(int nIndex) {
    Update(nIndex);
    return 1;
}

int CDetailViewAddrCard::DV_EnsureVisible(int nIndex, int) {
    return EnsureVisible(nIndex);
}

int CDetailViewAddrCard::DV_FindItemByData(long lData) {
    return FindCardIndexByData(reinterpret_cast<void*>(lData));
}

void CDetailViewAddrCard::DV_SetMaskPrivate(int bMask) {
    if (bMask == m_bMaskPrivate) return;
    m_bMaskPrivate = bMask;
    RedrawWindow(nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

}  // namespace orvo
