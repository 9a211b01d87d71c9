// What is written into an entry of who it is and when it was changed.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <exchange/lines/LineEdits.h>

namespace orvo {

// The moment, in milliseconds as those of RowIdentity, in whole seconds: "20261126T085100Z".
std::string FormatStamp(std::int64_t moment);

// Writes the moment in the place of the first line of that name, else behind the last line.
void SetStamp(LineEdits& edits, const LineList& lines, std::string_view name, std::int64_t moment);

// A record's uid in the form that cards and to-dos of the dialect have: a UUID is a URN in a card
// of version 4.0. Not escaped.
std::string FormatUid(std::string_view uid, Dialect dialect);

}  // namespace orvo
