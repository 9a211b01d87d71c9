// What is said of a record that is written without what the store can't read of it.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <contracts/RecordStore.h>

namespace orvo {

// `kind` is what the record is: "address" or "to-do"; `reason` is the store's.
std::string LossText(const char* kind, const CBaseRecord& record, const std::string& reason);

}  // namespace orvo
