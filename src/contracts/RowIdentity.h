// Who a row of the store is, and when it changed.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <platform/Export.h>

namespace orvo {

// Times are UTC, in milliseconds since 1970-01-01.
struct RowIdentity {
    std::string uid;  // UTF-8: that of the row's source, else a UUID without "urn:uuid:"
    std::int64_t created = 0;
    std::int64_t modified = 0;
    std::int64_t revision = 0;  // that of the store when the row changed last
    bool operator==(const RowIdentity&) const = default;
};

// What a card or a to-do, as a file has it, says of itself. Times are those of RowIdentity.
struct SourceStamp {
    std::string uid;         // empty where it has none that is UTF-8 without control characters
    std::string recurrence;  // which one of a series it stands for: RECURRENCE-ID; mostly empty
    std::optional<std::int64_t> sequence;  // SEQUENCE
    std::optional<std::int64_t> created;   // CREATED
    std::optional<std::int64_t> modified;  // the latest of REV and LAST-MODIFIED, else DTSTAMP
};

// Reads the stamp of the first card or to-do of a text (RFC 6350, RFC 5545, vCard 2.1, vCalendar
// 1.0). Components within it are passed over.
ORVO_API SourceStamp ReadSourceStamp(std::string_view source);

// A new UUID in small letters, without "urn:uuid:". Later ones mostly sort behind earlier ones
// (RFC 9562, version 7), which keeps an index of them small and quick.
ORVO_API std::string NewUid();

// The form in which equal UIDs are equal: without "urn:uuid:", in small letters (ASCII).
ORVO_API std::string PlainUid(std::string_view uid);

}  // namespace orvo
