// The one ordering of addresses, and the sort keys that give the same order.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <contracts/RecordStore.h>
#include <platform/Export.h>
#include <platform/text/Collation.h>

namespace orvo {

// The listing order of an address view; the compare functions only ask whether it is 0.
constexpr long kListByCompany = 0;
constexpr long kListByName = 1;

// Compare two records, given by their addresses, in the order that `listBy` names: 0 by company,
// any other by name. The texts that aren't empty are compared one by one; where all are equal, the
// record with fewer of them goes first. AddrCompareFunc asks for the system's code page each time:
// the Japanese form, in which a reading stands before the text that it reads, for 932, the English
// form for any other.
// Returns:  negative: the first record goes first; 0: no difference; positive: the second goes
//           first.
ORVO_API int AddrCompareFunc(long record1, long record2, long listBy);
ORVO_API int AddrCompareFuncEnglish(long record1, long record2, long listBy);
ORVO_API int AddrCompareFuncJapanese(long record1, long record2, long listBy);

// The sort keys of addresses, for one sort: their parts, as KeySortedRows asks for them, give the
// same order as the compare function of that form.
class ORVO_API AddrSortKeys {
public:
    enum class Form { English, Japanese };

    // The form that AddrCompareFunc would choose.
    static Form SystemForm();

    AddrSortKeys(Form form, long listBy);

    // Part 0 holds the first filled fields, which nearly always decide, part 1 the rest.
    void AppendPart(const CAddressRecord& record, std::size_t part, std::string& key);

private:
    std::vector<AddressField> m_order;
    SortKeyMaker m_keys;
};

}  // namespace orvo
