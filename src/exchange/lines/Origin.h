// What an import took from its surroundings, so that an export elsewhere knows what was edited.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include <contracts/RecordFields.h>
#include <contracts/RecordStore.h>
#include <platform/time/TimeZone.h>

namespace orvo {

// Values that a record got when it was imported and that the same source may not yield again: under
// another time zone or language, or once the table's labels and categories have changed.
struct Origin {
    std::string charset;  // the legacy set of the source; empty where it has none

    int category = 0;
    std::optional<std::size_t> listed;  // the place of its name among the names of the source

    std::array<long, kPhoneSlots> labels{0, 1, 2, 3, 4};
    long displayPhone = 1;

    std::optional<CivilTime> due;
    std::optional<CivilTime> completed;

    bool isEdited = false;  // the source isn't as it came: it was changed here

    bool operator==(const Origin&) const = default;
};

// One line, "category=3 listed=0 charset=Shift_JIS labels=0,1,2,3,4 display=1 edited=1"; what is as
// in a new Origin is left out, but for the category.
std::string FormatOrigin(const Origin& origin);

// Nothing for an empty text. A word that isn't understood is passed over.
std::optional<Origin> ParseOrigin(std::string_view text);

// The origin's date as a record returns it.
long RecordDateOf(const std::optional<CivilTime>& civil);
// A record's date as its store keeps it; nothing for no date.
std::optional<CivilTime> CivilOfRecordDate(long date);

}  // namespace orvo
