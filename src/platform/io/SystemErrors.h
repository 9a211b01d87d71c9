// The codes by which the platform's functions report why they failed.
// SPDX-License-Identifier: MIT
#pragma once

namespace orvo {

constexpr long ERROR_SUCCESS = 0;
constexpr long ERROR_FILE_NOT_FOUND = 2;
constexpr long ERROR_ACCESS_DENIED = 5;
constexpr long ERROR_INVALID_HANDLE = 6;
constexpr long ERROR_NOT_ENOUGH_MEMORY = 8;
constexpr long ERROR_INVALID_DATA = 13;
constexpr long ERROR_INVALID_PARAMETER = 87;
constexpr long ERROR_INVALID_NAME = 123;
constexpr long ERROR_ALREADY_EXISTS = 183;
constexpr long ERROR_MORE_DATA = 234;
constexpr long ERROR_INVALID_ADDRESS = 487;

}  // namespace orvo
