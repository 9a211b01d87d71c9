// Where each row of the kana table begins in an address view.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <span>
#include <vector>

#include <desktop/kana/KanaEntries.h>
#include <orvoshare/addressviews/AddrCompare.h>
#include <orvoshare/addressviews/LookupKey.h>

namespace orvo::desktop {
namespace {

using enum AddressField;

// Of an item's fields the first that holds something decides, as in the order of the view.
constexpr std::array kByName{NameYomi, Name, FirstYomi, First, CompanyYomi, Company};
constexpr std::array kByCompany{CompanyYomi, Company, NameYomi, Name, FirstYomi, First};

KanaRow RowOfRecord(const CAddressRecord* record, std::span<const AddressField> fields) {
    constexpr std::string_view kSpace = " \t\r\n";
    for (const AddressField field : fields) {
        const std::string_view text = record ? record->Utf8(field) : std::string_view();
        const std::size_t begin = text.find_first_not_of(kSpace);
        if (begin != std::string_view::npos) return KanaRowOf(text.substr(begin));
    }
    return KanaRow::Other;
}

}  // namespace

KanaEntries FirstKanaEntries(CDetailViewAddrInf& view) {
    // How many records at a time are brought near before they are read.
    constexpr int kAhead = 32;
    const bool byCompany = view.DV_GetListBy() == kListByCompany;
    const std::span<const AddressField> fields = byCompany ? kByCompany : kByName;
    KanaEntries entries;
    entries.fill(-1);
    int missing = kKanaRowCount;
    const int count = view.DV_GetItemCount();
    std::vector<const CAddressRecord*> records;
    records.reserve(kAhead);
    for (int first = 0; first < count && missing > 0; first += kAhead) {
        records.clear();
        for (int item = first; item < std::min(first + kAhead, count); ++item) {
            records.push_back(RecordOf(view.DV_GetItemData(item)));
        }
        FetchAhead(records);
        for (std::size_t i = 0; i < records.size(); ++i) {
            int& entry = entries[static_cast<std::size_t>(RowOfRecord(records[i], fields))];
            if (entry >= 0) continue;
            entry = first + static_cast<int>(i);
            --missing;
        }
    }
    return entries;
}

}  // namespace orvo::desktop
