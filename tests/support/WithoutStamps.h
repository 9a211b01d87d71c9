// The stamps that tell when an entry was written.
// SPDX-License-Identifier: MIT
#pragma once

#include <regex>
#include <string>

namespace orvo {

// The text of cards and to-dos without its lines of that kind, as they are of another time at each
// run.
inline std::string WithoutStamps(const std::string& text) {
    static const std::regex kStamp(
        "(^|\r|\n)(REV|DTSTAMP|LAST-MODIFIED|CREATED|DCREATED):\\d{8}T\\d{6}Z(\r\n|\n|\r)");
    std::string result = text;
    for (std::smatch match; std::regex_search(result, match, kStamp);) {
        result.erase(static_cast<std::size_t>(match.position(2)),
                     static_cast<std::size_t>(match.length(0) - match.length(1)));
    }
    return result;
}

}  // namespace orvo
