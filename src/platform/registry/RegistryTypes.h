// The types of the values of the registry.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace orvo {

constexpr std::uint32_t REG_SZ = 1;
constexpr std::uint32_t REG_EXPAND_SZ = 2;
constexpr std::uint32_t REG_BINARY = 3;
constexpr std::uint32_t REG_DWORD = 4;  // four bytes, the least first
constexpr std::uint32_t REG_MULTI_SZ = 7;

}  // namespace orvo
