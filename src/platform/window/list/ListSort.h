// Sorting the rows of a list by a compare function, or by the keys that stand for it.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <platform/Export.h>
#include <platform/window/list/ListMessages.h>

namespace orvo {

class ListPeer;

// Appends a part of the key of the row with that data word, as KeySortedRows asks for it.
using DataKeyMaker = std::function<void(LPARAM data, std::size_t part, std::string& key)>;

// Makes keys for one sort with the sorter's own argument. An empty maker means that there are none
// this time, and that the compare function is called.
using SortKeySource = std::function<DataKeyMaker(LPARAM argument)>;

// From now on a sort with that compare function goes by keys, whose order must equal the
// function's. An empty source takes the registration back.
ORVO_API void RegisterSortKeys(PFNLVCOMPARE compare, SortKeySource source);

// The rows in the order of the compare function; equal rows keep their order.
ORVO_API std::vector<std::uint32_t> SortedRows(const ListPeer& list, PFNLVCOMPARE compare,
                                               LPARAM argument);

}  // namespace orvo
