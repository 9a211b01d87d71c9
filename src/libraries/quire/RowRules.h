// What every engine holds its rows to.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

#include <contracts/StoreEngine.h>

namespace orvo {

// The placement of a row that was given none.
std::int32_t FirstPlacement(std::int64_t id);

// True where each date that the row has is a time of a clock in the years 0 to 9999.
bool HasStorableDates(const StoredRow& row);
constexpr const char* kNoStorableDate = "a date isn't a time of a clock in the years 0 to 9999";

bool IsStorableUid(std::string_view uid);
// Who a row with that source is that is added now; its revision is left at 0.
RowIdentity NewIdentity(std::string_view source);

// The number by which an index finds a uid: the lower half of FNV-1a of its PlainUid, as a signed
// number of 32 bits.
std::int32_t UidKey(std::string_view uid);
constexpr const char* kNoStorableUid = "a uid is UTF-8 without control characters, and not empty";

// Reads the stored form of a date, "2026-12-24T17:30:00"; nothing for any other text.
std::optional<CivilTime> ParseStoredDate(std::string_view text);

}  // namespace orvo
