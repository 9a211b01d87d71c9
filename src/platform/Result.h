// HRESULT: how calls of interfaces and of the shell report what became of them.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace orvo {

// Below 0 for a failure.
using HRESULT = std::int32_t;

constexpr HRESULT ResultOf(std::uint32_t code) {
    return static_cast<HRESULT>(code);
}

constexpr HRESULT S_OK = 0;
constexpr HRESULT S_FALSE = 1;
constexpr HRESULT E_NOTIMPL = ResultOf(0x80004001);
constexpr HRESULT E_NOINTERFACE = ResultOf(0x80004002);
constexpr HRESULT E_POINTER = ResultOf(0x80004003);
constexpr HRESULT E_FAIL = ResultOf(0x80004005);
constexpr HRESULT E_OUTOFMEMORY = ResultOf(0x8007000E);
constexpr HRESULT E_INVALIDARG = ResultOf(0x80070057);
constexpr HRESULT STG_E_READFAULT = ResultOf(0x8003001E);
constexpr HRESULT STG_E_MEDIUMFULL = ResultOf(0x80030070);
constexpr HRESULT REGDB_E_IIDNOTREG = ResultOf(0x80040155);
constexpr HRESULT CO_E_NOTINITIALIZED = ResultOf(0x800401F0);
constexpr HRESULT CO_E_OBJNOTCONNECTED = ResultOf(0x800401FD);
constexpr HRESULT RPC_E_SERVER_DIED = ResultOf(0x80010007);
constexpr HRESULT RPC_E_SERVERFAULT = ResultOf(0x80010105);
constexpr HRESULT RPC_E_DISCONNECTED = ResultOf(0x80010108);
constexpr HRESULT RPC_E_WRONG_THREAD = ResultOf(0x8001010E);
constexpr HRESULT RPC_E_TIMEOUT = ResultOf(0x8001011F);
constexpr HRESULT RPC_E_SERVER_UNAVAILABLE = ResultOf(0x800706BA);  // no session bus

constexpr bool Succeeded(HRESULT result) {
    return result >= 0;
}

}  // namespace orvo
