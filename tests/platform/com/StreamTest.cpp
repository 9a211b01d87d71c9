// Blocks of memory, streams on them, and the packets that streams carry.
// SPDX-License-Identifier: MIT
#include <cstring>
#include <tuple>

#include <gtest/gtest.h>

#include <platform/com/ReferencePacket.h>
#include <platform/com/StreamOn.h>

namespace orvo {
namespace {

TEST(GlobalMemory, ALockedBlockKeepsItsPlace) {
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 3);
    auto* bytes = static_cast<char*>(GlobalLock(block));
    EXPECT_EQ(bytes[2], 0);
    GlobalLock(block);

    EXPECT_EQ(GlobalReAlloc(block, 100), nullptr);
    EXPECT_NE(GlobalUnlock(block), 0);
    EXPECT_EQ(GlobalUnlock(block), 0);
    EXPECT_EQ(GlobalReAlloc(block, 100), block);
    EXPECT_EQ(GlobalSize(block), 100U);

    EXPECT_EQ(GlobalFree(block), nullptr);
    EXPECT_EQ(GlobalFree(block), block) << "it has gone";
    EXPECT_EQ(GlobalLock(block), nullptr);
    EXPECT_EQ(GlobalAlloc(0, 3), nullptr);
}

TEST(Stream, WritingBehindTheEndMakesTheBlockGrow) {
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 4);
    const ComPointer<IStream> stream = StreamOn(block);
    std::uint64_t place = 0;
    char bytes[8] = {};
    ULONG done = 0;

    EXPECT_EQ(stream->Write("abcdef", 6, nullptr), S_OK);
    EXPECT_EQ(GlobalReAlloc(block, 6), block) << "a write leaves it unlocked";
    EXPECT_EQ(stream->Seek(-2, STREAM_SEEK_END, &place), S_OK);
    EXPECT_EQ(place, 4U);
    EXPECT_EQ(stream->Read(bytes, 8, &done), S_FALSE);
    EXPECT_EQ(done, 2U);
    EXPECT_STREQ(bytes, "ef");
    EXPECT_EQ(GlobalReAlloc(block, 6), block) << "and so does a read";
    EXPECT_EQ(stream->Seek(-7, STREAM_SEEK_CUR, nullptr), E_INVALIDARG);
    EXPECT_EQ(stream->Seek(1000, STREAM_SEEK_SET, nullptr), S_OK);
    EXPECT_EQ(stream->Read(bytes, 1, &done), S_FALSE);
}

TEST(Stream, OnlyAnOwnerFreesTheBlock) {
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 1);
    { const ComPointer<IStream> stream = StreamOn(block, false); }
    EXPECT_EQ(GlobalSize(block), 1U);
    {
        const ComPointer<IStream> stream = StreamOn(block);
        const ComPointer<IStream> other = stream;
    }
    EXPECT_EQ(GlobalBlockCount(), 0U);

    IStream* stream = nullptr;
    EXPECT_EQ(CreateStreamOnHGlobal(block, 1, &stream), E_INVALIDARG);
}

const InterfaceReference kReference{IID_IStream, 0x1122334455667788, ":1.42", "/orvo/interfaces"};

class Bytes {
public:
    explicit Bytes(const std::string& bytes) {
        stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
        stream->Seek(0, STREAM_SEEK_SET, nullptr);
    }
    std::string All() const {
        std::string bytes(1000, '\0');
        ULONG done = 0;
        stream->Seek(0, STREAM_SEEK_SET, nullptr);
        stream->Read(bytes.data(), 1000, &done);
        return bytes.substr(0, done);
    }
    const ComPointer<IStream> stream = StreamOn();
};

std::string Packet() {
    const Bytes bytes("");
    EXPECT_EQ(WritePacket(*bytes.stream.Get(), kReference), S_OK);
    return bytes.All();
}

HRESULT ResultOf(const std::string& packet) {
    InterfaceReference read;
    return ReadPacket(*Bytes(packet).stream.Get(), read);
}

TEST(ReferencePacket, WhatIsWrittenIsReadAndNoByteMore) {
    const std::string packet = Packet();
    const Bytes bytes(packet + "behind");
    InterfaceReference read;
    std::uint64_t place = 0;

    EXPECT_EQ(ReadPacket(*bytes.stream.Get(), read), S_OK);
    EXPECT_EQ(read, kReference);
    EXPECT_EQ(bytes.stream->Seek(0, STREAM_SEEK_CUR, &place), S_OK);
    EXPECT_EQ(place, packet.size());
}

TEST(ReferencePacket, EveryCutPacketIsTooShort) {
    const std::string packet = Packet();
    for (std::size_t size = 0; size < packet.size(); ++size) {
        EXPECT_EQ(ResultOf(packet.substr(0, size)), STG_E_READFAULT) << size;
    }
}

TEST(ReferencePacket, ADamagedPacketIsRefused) {
    constexpr std::tuple<const char*, std::size_t, char, HRESULT> rows[] = {
        {"another magic", 0, 'X', E_INVALIDARG},
        {"a later version", 4, 2, E_INVALIDARG},
        {"no name", 6, 0, E_INVALIDARG},
        {"a name that takes the path's bytes", 6, 6, STG_E_READFAULT},
        {"a path that is cut at a slash", 7, 6, E_INVALIDARG},
        {"a path longer than the packet", 7, '\xFF', STG_E_READFAULT},
        {"a name that isn't unique", 32, 'a', E_INVALIDARG},
        {"an empty element", 33, '.', E_INVALIDARG},
        {"a zero in the name", 36, '\0', E_INVALIDARG},
        {"a path that doesn't begin at the root", 37, 'x', E_INVALIDARG},
        {"a blank in the path", 39, ' ', E_INVALIDARG},
        {"two slashes", 38, '/', E_INVALIDARG},
    };
    for (const auto& [why, place, byte, want] : rows) {
        std::string packet = Packet();
        ASSERT_NE(packet[place], byte) << why;
        packet[place] = byte;
        EXPECT_EQ(ResultOf(packet), want) << why;
    }
}

TEST(ReferencePacket, TheLongestNamesStayWithinTheLimit) {
    InterfaceReference longest = kReference;
    longest.busName = ":1." + std::string(252, '2');
    longest.objectPath = '/' + std::string(254, 'p');
    const Bytes bytes("");

    EXPECT_EQ(WritePacket(*bytes.stream.Get(), longest), S_OK);
    EXPECT_LE(bytes.All().size(), kPacketLimit);
    longest.busName += '2';
    EXPECT_EQ(WritePacket(*bytes.stream.Get(), longest), E_INVALIDARG);
}

}  // namespace
}  // namespace orvo
