// Passing interfaces to other processes of the same machine and user.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/com/RemoteInterface.h>
#include <platform/com/Stream.h>

namespace orvo {

constexpr ULONG MSHCTX_LOCAL = 0;           // for another process of this machine
constexpr ULONG MSHLFLAGS_NORMAL = 0;       // the packet can be used once
constexpr ULONG MSHLFLAGS_TABLESTRONG = 1;  // again and again, until CoReleaseMarshalData

// One thread of a process enters, as often as it leaves; it makes all calls, and serves those of
// others whenever it calls ServeSources or waits in a call or a message. The other functions fail
// with CO_E_NOTINITIALIZED where nobody has entered, RPC_E_WRONG_THREAD on another thread, and
// RPC_E_SERVER_UNAVAILABLE where there is no session bus. Success is exactly S_OK, but for the
// second CoInitialize, which returns S_FALSE. After the last CoUninitialize nothing is exported any
// more, and proxies fail with RPC_E_DISCONNECTED.
ORVO_API HRESULT CoInitialize(void* reserved);
ORVO_API void CoUninitialize();

// Sets `size` to a number of bytes that no packet exceeds.
// Fails:    with REGDB_E_IIDNOTREG where no such interface is registered; `size` stays.
ORVO_API HRESULT CoGetMarshalSizeMax(ULONG* size, REFIID id, IUnknown* object, ULONG context,
                                     void* contextData, ULONG flags);

// Writes a packet for the object's interface, which stays alive while the packet can be used or a
// process holds it. The receiver's process may end in any way: then it holds nothing any more.
ORVO_API HRESULT CoMarshalInterface(IStream* stream, REFIID id, IUnknown* object, ULONG context,
                                    void* contextData, ULONG flags);

// Reads a packet and sets `object` to the interface, with a reference of the caller's; in the
// process of the object that is the object itself. On failure `object` is null.
// Fails:    with STG_E_READFAULT and E_INVALIDARG where that is no whole packet,
//           CO_E_OBJNOTCONNECTED where it was used up, E_NOINTERFACE where it is for another
//           interface, and as calls do.
ORVO_API HRESULT CoUnmarshalInterface(IStream* stream, REFIID id, void** object);

// Reads a packet that nobody is to use any more; those who hold the object keep it.
ORVO_API HRESULT CoReleaseMarshalData(IStream* stream);

// How long a call of an interface may take, in milliseconds; 5000 until it is set.
ORVO_API void SetInterfaceTimeLimit(int milliseconds);

// How many packets and objects this process keeps for others.
ORVO_API std::size_t ExportedInterfaceCount();

}  // namespace orvo
