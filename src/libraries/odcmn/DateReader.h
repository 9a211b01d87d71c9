// Reading a date that a user has typed.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include <libraries/odcmn/DatePicture.h>

namespace orvo {

// What a text says of a date; the year is a Western one, or as it was typed.
struct TypedDate {
    std::optional<int> year;
    std::optional<int> month;
    std::optional<int> day;
};

// Reads a UTF-8 text by a picture. `separator` divides fields beside those that always do. `today`
// decides the era of a year that comes without one. Nothing where not all of the text was
// understood, or where no calendar has such a date.
std::optional<TypedDate> ReadDate(const std::vector<PictureItem>& picture, std::string_view text,
                                  char separator, const CivilTime& today);

}  // namespace orvo
