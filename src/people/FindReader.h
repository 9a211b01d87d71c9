// The texts by which records are found.
// SPDX-License-Identifier: MIT
#pragma once

#include <contracts/RecordStore.h>
#include <people/FindText.h>

namespace orvo {

// Any text of the record: its fields, its note, its category, and what only the card or the to-do
// holds that it came from, but for pictures and the like. Where the store can't give a part of it,
// that part is left out.
FindText FindTextOf(const CAddressRecord& record);
FindText FindTextOf(const CToDoRecord& record);

}  // namespace orvo
