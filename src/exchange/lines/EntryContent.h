// What an entry says, whatever the way in which it is written.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <exchange/lines/LineList.h>
#include <exchange/lines/LineText.h>

namespace orvo {

// The properties of an entry in an order and a form in which equal contents are equal: without
// regard to folds, escapes, encodings, the case and order of parameters, and the names of groups.
// Its UID, and when and by what it was written, don't count. `charset` is its legacy set, empty
// where the lines themselves decide.
std::vector<std::string> ContentOf(const LineList& lines, Dialect dialect,
                                   std::string_view charset);

}  // namespace orvo
