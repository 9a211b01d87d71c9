// The list of to-dos as a list of records.
// SPDX-License-Identifier: MIT
#include <orvoshare/RecordListContract.h>
#include <orvoshare/todo/TodoFixture.h>

namespace orvo {

INSTANTIATE_TYPED_TEST_SUITE_P(Todo, RecordListContract, TodoFixture);

}  // namespace orvo
