// Sorting the rows of a list by a compare function, or by the keys that stand for it.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <map>
#include <numeric>

#include <platform/text/KeySort.h>
#include <platform/window/list/ListPeer.h>
#include <platform/window/list/ListSort.h>

namespace orvo {

namespace {

std::map<PFNLVCOMPARE, SortKeySource>& Sources() {
    static std::map<PFNLVCOMPARE, SortKeySource> sources;
    return sources;
}

}  // namespace

void RegisterSortKeys(PFNLVCOMPARE compare, SortKeySource source) {
    if (source) {
        Sources()[compare] = std::move(source);
    } else {
        Sources().erase(compare);
    }
}

std::vector<std::uint32_t> SortedRows(const ListPeer& list, PFNLVCOMPARE compare, LPARAM argument) {
    std::vector<LPARAM> data(static_cast<std::size_t>(list.RowCount()));
    for (std::size_t row = 0; row < data.size(); ++row) {
        data[row] = static_cast<LPARAM>(list.Data(static_cast<int>(row)));
    }

    const auto source = Sources().find(compare);
    const DataKeyMaker makeKey = source == Sources().end() ? nullptr : source->second(argument);
    if (makeKey) {
        return KeySortedRows(data.size(), [&](std::uint32_t row, std::size_t part,
                                              std::string& key) { makeKey(data[row], part, key); });
    }
    std::vector<std::uint32_t> order(data.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(), [&](std::uint32_t left, std::uint32_t right) {
        return compare(data[left], data[right], argument) < 0;
    });
    return order;
}

}  // namespace orvo
