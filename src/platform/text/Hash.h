// A hash of bytes by which programs name what they share.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace orvo {

// FNV-1a: the same in each build, as different programs must come to the same name.
constexpr std::uint64_t HashOf(std::string_view bytes) {
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char byte : bytes) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    }
    return hash;
}

}  // namespace orvo
