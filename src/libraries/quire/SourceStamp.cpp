// What a kept card or to-do says of itself: its UID and its times.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <charconv>

#include <contracts/RowIdentity.h>

#include "RowRules.h"
#include "SourceLines.h"

namespace orvo {

namespace {

std::optional<std::int64_t> NumberOf(const std::string& digits) {
    std::int64_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, number);
    return error == std::errc() && rest == end && number >= 0 ? std::optional(number)
                                                              : std::nullopt;
}

void TakeLatest(std::optional<std::int64_t>& latest, std::optional<std::int64_t> moment) {
    if (moment) latest = std::max(latest.value_or(*moment), *moment);
}

// Takes what a line says, where it says anything of it.
void TakeProperty(std::string_view name, std::string_view line, SourceStamp& stamp,
                  std::optional<std::int64_t>& written) {
    if (IsSourceName(name, "UID")) {
        std::string uid = SourceLineValue(line);
        if (stamp.uid.empty() && IsStorableUid(uid)) stamp.uid = std::move(uid);
    } else if (IsSourceName(name, "REV") || IsSourceName(name, "LAST-MODIFIED")) {
        TakeLatest(stamp.modified, SourceMoment(SourceLineValue(line)));
    } else if (IsSourceName(name, "CREATED") || IsSourceName(name, "DCREATED")) {
        TakeLatest(stamp.created, SourceMoment(SourceLineValue(line)));
    } else if (IsSourceName(name, "DTSTAMP")) {
        TakeLatest(written, SourceMoment(SourceLineValue(line)));
    } else if (IsSourceName(name, "RECURRENCE-ID")) {
        stamp.recurrence = SourceLineValue(line);
    } else if (IsSourceName(name, "SEQUENCE")) {
        stamp.sequence = NumberOf(SourceLineValue(line));
    }
}

}  // namespace

SourceStamp ReadSourceStamp(std::string_view source) {
    SourceStamp stamp;
    std::optional<std::int64_t> written;
    const SourceWalk walk{"bBcCdDeElLrRsSuU", [&](std::string_view name, std::string_view line) {
                              TakeProperty(name, line, stamp, written);
                          }};
    walk.Run(source);
    if (!stamp.modified) stamp.modified = written;
    return stamp;
}

}  // namespace orvo
