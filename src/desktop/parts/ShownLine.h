// The one line of a to-do's text that lists show and edit.
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace orvo::desktop {

// The first line that isn't blank, within the whole text.
struct ShownLine {
    std::size_t begin;
    std::size_t end;

    explicit ShownLine(std::string_view whole)
        : begin(std::min(whole.find_first_not_of(" \t\r\n"), whole.size())),
          end(std::min(whole.find_first_of("\r\n", begin), whole.size())) {}

    std::string In(std::string_view whole) const {
        return std::string(whole.substr(begin, end - begin));
    }
    // The whole text with another line in its place.
    std::string Replaced(std::string whole, std::string_view line) const {
        return whole.replace(begin, end - begin, line);
    }
};

}  // namespace orvo::desktop
