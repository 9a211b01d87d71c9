// The content lines of a kept card or to-do, as far as the store reads them.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace orvo {

// Names are the same whatever the case of their letters.
bool IsSourceName(std::string_view a, std::string_view b);

// A walk over the lines of the first card or to-do of a text.
struct SourceWalk {
    // The letters, large and small, with which names of interest begin; B and E are among them.
    std::string_view firstLetters;
    // Called with the name, without its group, and the whole line, which may be folded, of each
    // line that isn't within a component of the card or to-do.
    std::function<void(std::string_view name, std::string_view line)> take;
    // Called with the name of each such component; may be empty.
    std::function<void(std::string_view component)> enter{};

    void Run(std::string_view source) const;
};

// The value of a line, put together where it is folded, with its escapes resolved.
std::string SourceLineValue(std::string_view line);
// That of a parameter of it, without quotes; empty where it has none.
std::string SourceLineParameter(std::string_view line, std::string_view name);

// Reads a date with or without a time, in the basic or the extended form of ISO 8601, in
// milliseconds since 1970-01-01. A time without a zone is taken as UTC.
std::optional<std::int64_t> SourceMoment(std::string_view text);

}  // namespace orvo
