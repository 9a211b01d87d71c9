// The logic that all address views have in common: filling, re-checking, lookup.
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <memory>
#include <utility>
#include <vector>

#include <orvoshare/addressviews/AddrCompare.h>
#include <orvoshare/addressviews/DetailViewAddrInf.h>
#include <orvoshare/addressviews/LookupKey.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemLocale.h>
#include <platform/window/list/ListMessages.h>

namespace orvo {

// `View` derives from this, from CDetailViewAddrInf and from its widget, and has `int
// SortByCompare(PFNLVCOMPARE compare, long listBy)`, the widget's sort, and `int GetMaskPrivate()`.
// The core has no state.
template <class View>
class CDetailViewCore {
public:
    // Damaged records are skipped; the table's LastError names the last one.
    void DVC_FillFromTable(CAddressTable* pTable, int nCategory, int bHidePrivate, int nListBy);
    int DVC_ReSort(int nIndex, int nCategory, int bHidePrivate);
    int DVC_Lookup(CString strKey);
    int DVC_IsPrivateRecordSelected();
    int DVC_VerifyCategoryAndPrivate(CAddressRecord* pRecord, int nCategory, int bHidePrivate);
    int DVC_VerifyCategoryAndPrivate(int nIndex, int nCategory, int bHidePrivate);

    // Sorts all items with the compare function of the system's code page.
    int DVC_Resort();

protected:
    CDetailViewCore() = default;
    ~CDetailViewCore() = default;

    // True for an item that doesn't sort before the one above or behind the one below it.
    int DVC_IsInSortedPosition(int nIndex);

    // The first of the items up to `nIndex` whose keys start with the text without a gap; accents
    // count here, so that the walk may stop at once.
    int DVC_FindFirstMatch(int nIndex, CString strKey);

    // The whole texts that a lookup holds the typed text against; empty where no record stands.
    void DVC_GetItemKey(int nIndex, CString& strOut);
    void DVC_GetItemYomiKey(int nIndex, CString& strOut);
    void DVC_MakeRecordKey(CAddressRecord* pRecord, CString& strOut);
    void DVC_MakeRecordYomiKey(CAddressRecord* pRecord, CString& strOut);

private:
    // The rows that a lookup may find. Where private records are masked it passes them over, as the
    // letters that it takes would spell them out.
    class LookupRows {
    public:
        explicit LookupRows(View& view);
        int Count() const { return m_areAll ? m_count : static_cast<int>(m_readable.size()); }
        int operator[](int place) const {
            return m_areAll ? place : m_readable[static_cast<std::size_t>(place)];
        }
        // The place of the row; requires that it may be found.
        int PlaceOf(int row) const;

    private:
        bool m_areAll;
        int m_count;
        std::vector<int> m_readable;  // where they aren't all
    };

    View& Self() { return static_cast<View&>(*this); }
    CAddressRecord* ItemRecord(int nIndex) { return RecordOf(Self().DV_GetItemData(nIndex)); }
    int CompareItems(int nIndex, int nOther);

    int FindFirstMatch(const LookupRows& rows, int place, CString strKey);

    // The first place from `place` on, by steps of 1 or -1, whose record is wanted; the count or -1
    // where there is none.
    template <class Predicate>
    int FindPlace(const LookupRows& rows, int place, int step, Predicate isWanted);
    bool BelongsIn(const CAddressRecord& record, int nCategory, int bHidePrivate);
};

template <class View>
void CDetailViewCore<View>::DVC_FillFromTable(CAddressTable* pTable, int nCategory,
                                              int bHidePrivate, int nListBy) {
    View& view = Self();
    view.DV_SetCategory(nCategory);
    view.DV_SetRedraw(0);
    view.DV_DeleteAll();
    view.DV_SetListBy(nListBy);
    view.DV_SetAddressTable(pTable);
    if (pTable) {
        CAddressIterator iterator(*pTable);
        int position = 0;
        auto record = std::make_unique<CAddressRecord>(*pTable, 1);
        long status = iterator.FindFirst(*record, 1);
        for (; status == 0 || iterator.IsAtDamage(); status = iterator.FindNext(*record, 1)) {
            const bool isWhole = status == 0;
            if (!isWhole || record->IsArchived() || !BelongsIn(*record, nCategory, bHidePrivate)) {
                continue;
            }
            view.DV_InsertRecord(position, record.release(), 0);
            ++position;
            record = std::make_unique<CAddressRecord>(*pTable, 1);
        }
        view.DV_Resort();
    }
    view.DV_SetRedraw(1);
    view.Invalidate(1);
}

template <class View>
int CDetailViewCore<View>::DVC_Resort() {
    const bool isJapanese = GetACP() == kJapaneseCodePage;
    return Self().SortByCompare(isJapanese ? AddrCompareFuncJapanese : AddrCompareFuncEnglish,
                                Self().DV_GetListBy());
}

template <class View>
int CDetailViewCore<View>::DVC_ReSort(int nIndex, int nCategory, int bHidePrivate) {
    View& view = Self();
    CAddressRecord* record = ItemRecord(nIndex);
    if (!record) return -1;
    if (!DVC_VerifyCategoryAndPrivate(record, nCategory, bHidePrivate)) {
        const std::unique_ptr<CAddressRecord> leaving(record);
        view.DV_DeleteItem(nIndex);
        return -1;
    }
    if (DVC_IsInSortedPosition(nIndex)) return nIndex;
    DVC_Resort();
    const int index = view.DV_FindItemByData(reinterpret_cast<long>(record));
    if (index != -1) view.DV_SelectItem(index, 1);
    return index;
}

template <class View>
int CDetailViewCore<View>::DVC_IsInSortedPosition(int nIndex) {
    if (!ItemRecord(nIndex)) return 0;
    const int last = Self().DV_GetItemCount() - 1;
    if (nIndex != 0 && (!ItemRecord(nIndex - 1) || CompareItems(nIndex, nIndex - 1) == -1))
        return 0;
    if (nIndex != last && (!ItemRecord(nIndex + 1) || CompareItems(nIndex, nIndex + 1) == 1))
        return 0;
    return 1;
}

template <class View>
int CDetailViewCore<View>::CompareItems(int nIndex, int nOther) {
    return AddrCompareFunc(reinterpret_cast<long>(ItemRecord(nIndex)),
                           reinterpret_cast<long>(ItemRecord(nOther)), Self().DV_GetListBy());
}

template <class View>
bool CDetailViewCore<View>::BelongsIn(const CAddressRecord& record, int nCategory,
                                      int bHidePrivate) {
    int category = kNoCategory;
    record.GetCategoryId(category);
    const bool isOfCategory = nCategory == kAllCategories || nCategory == category;
    return isOfCategory && !(bHidePrivate && record.IsPrivate());
}

template <class View>
int CDetailViewCore<View>::DVC_VerifyCategoryAndPrivate(CAddressRecord* pRecord, int nCategory,
                                                        int bHidePrivate) {
    return pRecord && BelongsIn(*pRecord, nCategory, bHidePrivate) ? 1 : 0;
}

template <class View>
int CDetailViewCore<View>::DVC_VerifyCategoryAndPrivate(int nIndex, int nCategory,
                                                        int bHidePrivate) {
    return DVC_VerifyCategoryAndPrivate(ItemRecord(nIndex), nCategory, bHidePrivate);
}

template <class View>
int CDetailViewCore<View>::DVC_IsPrivateRecordSelected() {
    POSITION position = Self().DV_GetFirstSelectedItemPosition();
    while (position) {
        const CAddressRecord* record = ItemRecord(Self().DV_GetNextSelectedItem(position));
        if (record && record->IsPrivate()) return 1;
    }
    return 0;
}

template <class View>
int CDetailViewCore<View>::DVC_Lookup(CString strKey) {
    const LookupRows rows(Self());
    const int count = rows.Count();
    if (count == 0) return -1;
    const KeyFields fields = SystemKeyFields();
    LookupKey key(strKey, Self().DV_GetListBy(), KeyMatch::CaseAndAccents);
    if (key.IsLongerThanAnyKey()) return -1;

    int low = 0;
    int high = count - 1;
    while (high - low > 1) {
        const int middle = low + (high - low) / 2;
        const int result = key.Compare(ItemRecord(rows[middle]), fields, KeyCut::Inc);
        if (result == 0) return FindFirstMatch(rows, middle, strKey);
        (result == -1 ? high : low) = middle;
    }
    for (const int place : {low, high}) {
        if (key.Compare(ItemRecord(rows[place]), fields, KeyCut::Dec) == 0)
            return FindFirstMatch(rows, place, strKey);
    }
    // The order is that of the readings; a text that is typed as it is written may stand anywhere.
    if (fields == KeyFields::Reading) {
        const int place = FindPlace(rows, 0, 1, [&](const CAddressRecord* record) {
            return key.Compare(record, KeyFields::Plain, KeyCut::Inc) == 0;
        });
        if (place < count) return FindFirstMatch(rows, place, strKey);
    }
    return -1;
}

template <class View>
int CDetailViewCore<View>::DVC_FindFirstMatch(int nIndex, CString strKey) {
    const LookupRows rows(Self());
    return FindFirstMatch(rows, rows.PlaceOf(nIndex), std::move(strKey));
}

template <class View>
int CDetailViewCore<View>::FindFirstMatch(const LookupRows& rows, int place, CString strKey) {
    LookupKey key(std::move(strKey), Self().DV_GetListBy(), KeyMatch::Case);
    if (key.IsEmpty()) return 0;  // every key starts with it
    const KeyFields fields = SystemKeyFields();
    const int before = FindPlace(rows, place - 1, -1, [&](const CAddressRecord* record) {
        return key.Compare(record, fields, KeyCut::Dec) != 0;
    });
    return rows[before + 1];
}

template <class View>
template <class Predicate>
int CDetailViewCore<View>::FindPlace(const LookupRows& rows, int place, int step,
                                     Predicate isWanted) {
    constexpr int kAhead = 32;
    const int count = rows.Count();
    std::array<const CAddressRecord*, kAhead> records;
    while (place >= 0 && place < count) {
        const int left = step > 0 ? count - place : place + 1;
        const int taken = std::min(kAhead, left);
        for (int i = 0; i < taken; ++i) {
            records[static_cast<std::size_t>(i)] = ItemRecord(rows[place + i * step]);
        }
        FetchAhead({records.data(), static_cast<std::size_t>(taken)});
        for (int i = 0; i < taken; ++i, place += step) {
            if (isWanted(records[static_cast<std::size_t>(i)])) return place;
        }
    }
    return place;
}

template <class View>
CDetailViewCore<View>::LookupRows::LookupRows(View& view)
    : m_areAll(view.GetMaskPrivate() == 0), m_count(view.DV_GetItemCount()) {
    for (int row = 0; row < m_count && !m_areAll; ++row) {
        const CAddressRecord* record = RecordOf(view.DV_GetItemData(row));
        if (!record || !record->IsPrivate()) m_readable.push_back(row);
    }
}

template <class View>
int CDetailViewCore<View>::LookupRows::PlaceOf(int row) const {
    if (m_areAll) return row;
    const auto place = std::lower_bound(m_readable.begin(), m_readable.end(), row);
    return static_cast<int>(place - m_readable.begin());
}

template <class View>
void CDetailViewCore<View>::DVC_GetItemKey(int nIndex, CString& strOut) {
    DVC_MakeRecordKey(ItemRecord(nIndex), strOut);
}

template <class View>
void CDetailViewCore<View>::DVC_GetItemYomiKey(int nIndex, CString& strOut) {
    DVC_MakeRecordYomiKey(ItemRecord(nIndex), strOut);
}

template <class View>
void CDetailViewCore<View>::DVC_MakeRecordKey(CAddressRecord* pRecord, CString& strOut) {
    MakeRecordKey(pRecord, KeyFields::Plain, Self().DV_GetListBy(), strOut);
}

template <class View>
void CDetailViewCore<View>::DVC_MakeRecordYomiKey(CAddressRecord* pRecord, CString& strOut) {
    MakeRecordKey(pRecord, KeyFields::Reading, Self().DV_GetListBy(), strOut);
}

}  // namespace orvo
