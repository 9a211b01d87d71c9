// The bytes of a packet, whole and damaged.
// SPDX-License-Identifier: MIT
#include <cstring>

#include <gtest/gtest.h>

#include <platform/com/ReferencePacket.h>
#include <platform/com/StreamOn.h>

namespace orvo {
namespace {

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
    struct Row {
        const char* why;
        std::size_t place;
        char byte;
        HRESULT want;
    };
    constexpr Row rows[] = {
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
    for (const Row& row : rows) {
        std::string packet = Packet();
        ASSERT_NE(packet[row.place], row.byte) << row.why;
        packet[row.place] = row.byte;
        EXPECT_EQ(ResultOf(packet), row.want) << row.why;
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
