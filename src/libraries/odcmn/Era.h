// The eras of the Japanese calendar.
// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

#include <platform/time/TimeZone.h>

namespace orvo {

struct Era {
    std::u32string_view name;  // its first character stands for the whole of it too
    char32_t letter;           // upper case
    CivilTime firstDay;
};

// The latest era first.
std::span<const Era> Eras();

// The era of a day; null for a day before the first of them.
const Era* EraOfDay(const CivilTime& day);

}  // namespace orvo
