// The orders of to-dos.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>

namespace orvo {

// From now on lists of to-dos sort their rows by keys that give the order of TodoCompareRecords.
// May be called again.
ORVO_API void RegisterTodoSortKeys();

}  // namespace orvo
