// The list of to-dos as a list of records.
// SPDX-License-Identifier: MIT
#include <orvoshare/todo/TodoFixture.h>

namespace orvo {

using ListFixture = TodoFixture;

}  // namespace orvo

#include <orvoshare/RecordListContract.h>
