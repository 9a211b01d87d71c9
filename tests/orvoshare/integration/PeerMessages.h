// What a test tells the other program by messages.
// SPDX-License-Identifier: MIT
#pragma once

#include <orvoshare/integration/InterfaceTransfer.h>
#include <platform/com/Counter.h>

namespace orvo {

constexpr DWORD kTag = 0x6F727631;

constexpr UINT kSendInterface = WM_APP + 1;  // wParam: the window that is to get it
constexpr UINT kCountObjects = WM_APP + 2;
constexpr UINT kCountExports = WM_APP + 3;
constexpr UINT kCountBlocks = WM_APP + 4;
constexpr UINT kDropPartner = WM_APP + 5;
constexpr UINT kBouncePartner = WM_APP + 6;  // lParam: how often

// Takes over the interface that WM_COPYDATA has brought.
inline HRESULT TakeInterface(ComPointer<ICounter>& counter, LPARAM lParam) {
    void* object = nullptr;
    const HRESULT result =
        GetInterfaceFromCopyData(PointerOf<COPYDATASTRUCT>(lParam), IID_ICounter, &object);
    counter = ComPointer(static_cast<ICounter*>(object));
    return result;
}

}  // namespace orvo
