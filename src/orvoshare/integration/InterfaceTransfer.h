// Handing an interface to a window, which may belong to another process of the user.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/com/Marshal.h>
#include <platform/window/base/ForeignWindow.h>

namespace orvo {

// The sender packs, sends as often as it likes, and then frees the block with GlobalFree; each
// receiver unpacks. The caller has entered COM. All results are those of the platform; success is
// S_OK alone.

// Packs the object's interface so that it can be unpacked again and again. The object lives until
// the sender gives the packet to CoReleaseMarshalData or leaves COM.
// Returns:  the block, and its size, which may exceed the packet's.
// Owner:    the caller, who frees the block.
// Fails:    with both left as they were and nothing allocated; with E_OUTOFMEMORY where there is no
//           memory for the block.
ORVO_API HRESULT MarshalInterfaceIntoHandle(REFIID id, IUnknown* object, HGLOBAL* block,
                                            DWORD* size);

// Sends the block to the receiver in WM_COPYDATA with that tag and wParam, which is the sending
// window, and waits until it is handled.
// Returns:  the message's result; 0 where the block isn't there.
ORVO_API LRESULT SendInterfaceToHwnd(WPARAM wParam, HWND receiver, DWORD tag, HGLOBAL block,
                                     DWORD size);

// Unpacks what WM_COPYDATA has brought, from a copy of its bytes.
// Returns:  the interface with a reference of the caller's; null on failure.
ORVO_API HRESULT GetInterfaceFromCopyData(COPYDATASTRUCT* data, REFIID id, void** object);

// The same from bytes that came by another way.
ORVO_API HRESULT GetInterfaceFromMemoryBlock(void* bytes, DWORD size, REFIID id, void** object);

}  // namespace orvo
