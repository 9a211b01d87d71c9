// Any bytes are the packet of an interface, or are refused; what was read is written as it was.
// SPDX-License-Identifier: MIT
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include <platform/com/ReferencePacket.h>

using namespace orvo;

namespace {

// A stream on a copy of the bytes.
ComPointer<IStream> StreamOf(const std::uint8_t* data, std::size_t size) {
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
    if (size != 0) std::memcpy(GlobalLock(block), data, size);
    GlobalUnlock(block);
    IStream* stream = nullptr;
    if (CreateStreamOnHGlobal(block, 1, &stream) != S_OK) std::abort();
    return ComPointer(stream);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ComPointer<IStream> stream = StreamOf(data, size);
    InterfaceReference reference;
    if (ReadPacket(*stream.Get(), reference) != S_OK) {
        if (reference != InterfaceReference()) std::abort();
        return 0;
    }
    std::uint64_t read = 0;
    stream->Seek(0, STREAM_SEEK_CUR, &read);
    if (read > size || read > kPacketLimit) std::abort();

    const ComPointer<IStream> again = StreamOf(nullptr, 0);
    if (WritePacket(*again.Get(), reference) != S_OK) std::abort();
    std::uint64_t written = 0;
    again->Seek(0, STREAM_SEEK_CUR, &written);
    std::uint8_t bytes[kPacketLimit];
    again->Seek(0, STREAM_SEEK_SET, nullptr);
    again->Read(bytes, kPacketLimit, nullptr);
    if (written != read || std::memcmp(bytes, data, read) != 0) std::abort();
    return 0;
}
