// The bytes by which another process reaches an interface: a reference on the session bus.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <platform/Export.h>
#include <platform/com/Stream.h>

namespace orvo {

struct InterfaceReference {
    IID interfaceId;
    std::uint64_t key = 0;  // random: who doesn't have the packet can't guess it
    std::string busName;    // the unique name of the process that has the object
    std::string objectPath;

    friend bool operator==(const InterfaceReference&, const InterfaceReference&) = default;
};

// No packet is longer.
constexpr ULONG kPacketLimit = 544;

// Fails:    with E_INVALIDARG where the name or the path is no such name; as the stream fails.
ORVO_API HRESULT WritePacket(IStream& stream, const InterfaceReference& reference);

// Reads no further than the packet goes.
// Fails:    with STG_E_READFAULT where the stream ends too soon, E_INVALIDARG where it is no
//           packet.
ORVO_API HRESULT ReadPacket(IStream& stream, InterfaceReference& reference);

}  // namespace orvo
