// Who a record is and when it changed, as commands print it.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include <cli/Output.h>
#include <contracts/RecordStore.h>

namespace orvo::cli {

// A time of RowIdentity in UTC: "2026-11-26T08:51:00.123Z"; empty where the store tells none.
std::string IsoTime(std::int64_t moment);

// Adds "uid", "created" and "modified" to an object; nulls for what the store can't tell.
void AddIdentity(const CBaseRecord& record, Json& json);

// The same as lines.
void PrintIdentity(const CBaseRecord& record);

}  // namespace orvo::cli
