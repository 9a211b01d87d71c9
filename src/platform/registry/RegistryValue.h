// How a typed value of the registry is written as one text.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvo {

struct RegistryValue {
    std::uint32_t type = 0;
    std::string data;
};

// The name of the type, a colon, and the data: a text without its ending zero, a number as a
// decimal, bytes in hexadecimal.
// Fails:    with nothing for an unknown type, or a number that hasn't four bytes.
std::optional<std::string> TextOfValue(std::uint32_t type, std::string_view data);

// The value of a text; nothing where it is none.
std::optional<RegistryValue> ValueOfText(std::string_view text);

}  // namespace orvo
