// Sorting by keys: bytes made once a row, instead of a comparison of texts at each step.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <platform/Export.h>

namespace orvo {

// Appends the part with that number, counted from 0, of a row's key to `key`; nothing where the row
// has no such part. A part that is there has at least one byte.
using KeyPartMaker = std::function<void(std::uint32_t row, std::size_t part, std::string& key)>;

// The row numbers 0 to `rows` - 1 in the order of their keys. Keys are compared part by part, each
// byte by byte, a shorter one before a longer one that begins with it; a row that has no further
// part comes first. Rows that agree in all parts keep their order. A part is asked for only where
// all before it leave rows equal, and once a row.
ORVO_API std::vector<std::uint32_t> KeySortedRows(std::size_t rows, const KeyPartMaker& makePart);

}  // namespace orvo
