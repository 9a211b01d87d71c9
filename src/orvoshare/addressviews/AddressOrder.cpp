// Sorting many addresses at once, by keys.
// SPDX-License-Identifier: MIT
#include <orvoshare/addressviews/AddrCompare.h>
#include <orvoshare/addressviews/AddressOrder.h>
#include <orvoshare/addressviews/DetailViewAddrInf.h>
#include <platform/text/KeySort.h>
#include <platform/window/list/ListSort.h>

namespace orvo {
namespace {

using Form = AddrSortKeys::Form;

DataKeyMaker KeyMaker(Form form, long listBy) {
    const auto keys = std::make_shared<AddrSortKeys>(form, listBy);
    return [keys](LPARAM data, std::size_t part, std::string& key) {
        const CAddressRecord* record = RecordOf(static_cast<unsigned long>(data));
        if (record) keys->AppendPart(*record, part, key);
    };
}

}  // namespace

void SortAddresses(AddressRecords& records, long listBy) {
    AddrSortKeys keys(AddrSortKeys::SystemForm(), listBy);
    const std::vector<std::uint32_t> order =
        KeySortedRows(records.size(), [&](std::uint32_t row, std::size_t part, std::string& key) {
            keys.AppendPart(*records[row], part, key);
        });
    AddressRecords sorted;
    sorted.reserve(records.size());
    for (const std::uint32_t row : order) sorted.push_back(std::move(records[row]));
    records = std::move(sorted);
}

void RegisterAddressSortKeys() {
    RegisterSortKeys(AddrCompareFunc,
                     [](LPARAM listBy) { return KeyMaker(AddrSortKeys::SystemForm(), listBy); });
    RegisterSortKeys(AddrCompareFuncEnglish,
                     [](LPARAM listBy) { return KeyMaker(Form::English, listBy); });
    RegisterSortKeys(AddrCompareFuncJapanese,
                     [](LPARAM listBy) { return KeyMaker(Form::Japanese, listBy); });
}

}  // namespace orvo
