// Date pictures: taken apart, made from CLDR's patterns, and filled with a date.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include <platform/time/TimeZone.h>

namespace orvo {

// A run of one field letter, or the text between two such runs.
struct PictureItem {
    char letter;  // 'd', 'M', 'y', 'g'; 0 for text
    int count;    // how often the letter stands there
    std::string text;
};

// A picture in UTF-8 as its items. Text in single quotes, and a doubled quote, stand for
// themselves.
std::vector<PictureItem> SplitPicture(std::string_view picture);

bool HasEra(const std::vector<PictureItem>& items);

// What stands between the first two fields of day, month and year; "/" where nothing does.
std::string SeparatorOf(const std::vector<PictureItem>& items);

// A date pattern of CLDR as a picture. Marks of the writing direction go, and special blanks become
// plain ones. With `japanese`, years are those of the era; else the era goes.
std::string PictureOfPattern(std::string_view pattern, bool japanese);

struct MonthNames {
    std::array<std::string, 12> full;
    std::array<std::string, 12> abbreviated;
};

// The date in UTF-8. In a picture with an era the year is the one of the Japanese era; a day before
// the first of them gets none, and its Western year.
std::string FillPicture(const std::vector<PictureItem>& items, const CivilTime& date,
                        const MonthNames& names);

}  // namespace orvo
