// What every engine holds its rows to.
// SPDX-License-Identifier: MIT
#include "RowRules.h"

#include <algorithm>
#include <limits>
#include <utility>

#include <contracts/RowIdentity.h>
#include <platform/text/Charset.h>
#include <platform/text/Hash.h>
#include <platform/time/CTime.h>

namespace orvo {

namespace {

constexpr std::string_view kPattern = "0000-00-00T00:00:00";

bool FollowsPattern(std::string_view text) {
    if (text.size() != kPattern.size()) {
        return false;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isDigit = text[i] >= '0' && text[i] <= '9';
        if (kPattern[i] == '0' ? !isDigit : text[i] != kPattern[i]) {
            return false;
        }
    }
    return true;
}

int TwoDigits(std::string_view text, std::size_t position) {
    return 10 * (text[position] - '0') + (text[position + 1] - '0');
}

bool IsStorable(const CivilTime& civil) {
    const auto lies = [](int value, int least, int most) {
        return value >= least && value <= most;
    };
    return lies(civil.year, 0, 9999) && lies(civil.month, 1, 12) && lies(civil.day, 1, 31) &&
           lies(civil.hour, 0, 23) && lies(civil.minute, 0, 59) && lies(civil.second, 0, 59);
}

}  // namespace

std::int32_t FirstPlacement(std::int64_t id) {
    return static_cast<std::int32_t>(
        std::min<std::int64_t>(id, std::numeric_limits<std::int32_t>::max()));
}

bool HasStorableDates(const StoredRow& row) {
    return (!row.due || IsStorable(*row.due)) && (!row.completed || IsStorable(*row.completed));
}

bool IsStorableUid(std::string_view uid) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
    return !uid.empty() && std::none_of(uid.begin(), uid.end(), isControl) && IsValidUtf8(uid);
}

RowIdentity NewIdentity(std::string_view source) {
    SourceStamp stamp = ReadSourceStamp(source);
    const std::int64_t now = CTime::GetCurrentMilliseconds();
    RowIdentity identity;
    identity.uid = stamp.uid.empty() ? NewUid() : std::move(stamp.uid);
    identity.modified = stamp.modified.value_or(now);
    identity.created = stamp.created.value_or(std::min(now, identity.modified));
    return identity;
}

std::int32_t UidKey(std::string_view uid) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(HashOf(PlainUid(uid))));
}

std::optional<CivilTime> ParseStoredDate(std::string_view text) {
    if (!FollowsPattern(text)) {
        return std::nullopt;
    }
    const CivilTime civil{100 * TwoDigits(text, 0) + TwoDigits(text, 2),
                          TwoDigits(text, 5),
                          TwoDigits(text, 8),
                          TwoDigits(text, 11),
                          TwoDigits(text, 14),
                          TwoDigits(text, 17)};
    return IsStorable(civil) ? std::optional(civil) : std::nullopt;
}

}  // namespace orvo
