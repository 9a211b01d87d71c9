// Two addresses side by side, field by field.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <array>
#include <string>
#include <vector>

#include <desktop/import/MergeChoices.h>

namespace orvo::desktop {

// A field as the first and the second address have it.
struct DuplicateRow {
    QString label;
    std::array<QString, 2> texts;
    std::array<std::string, 2> photos;  // the bytes of a picture, for which no text stands then
    bool differs = false;
    MergeChoices ofSecond;     // what is chosen by taking the second one's; empty where both stay
    bool takesSecond = false;  // what is usual
};

// All that either says, whether a field of the record holds it or only the card that it came from;
// fields that are empty in both are left out.
std::vector<DuplicateRow> RowsOf(const CAddressRecord& first, const CAddressRecord& second);

}  // namespace orvo::desktop
