// Blocks of memory, streams on them, the packets that streams carry, and who may use those, all
// within one process.
// SPDX-License-Identifier: MIT
#include <cstring>
#include <thread>
#include <tuple>

#include <gtest/gtest.h>

#include <platform/com/Counter.h>
#include <platform/com/Marshal.h>
#include <platform/com/ReferencePacket.h>
#include <platform/com/SessionFixture.h>

namespace orvo {
namespace {

// On a new empty block of its own where none is given.
ComPointer<IStream> StreamOn(HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 0), bool deletes = true) {
    IStream* stream = nullptr;
    EXPECT_EQ(CreateStreamOnHGlobal(block, deletes ? 1 : 0, &stream), S_OK);
    return ComPointer(stream);
}

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
    bytes.stream->Seek(0, STREAM_SEEK_CUR, &place);
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

struct Marshal : testing::Test {
    Marshal() {
        RegisterCounter();
        EXPECT_EQ(CoInitialize(nullptr), S_OK);
    }
    ~Marshal() override {
        CoUninitialize();
        counter = {};
        EXPECT_EQ(Counter::Living(), 0);
    }

    HRESULT Write(ULONG flags, ULONG context = MSHCTX_LOCAL) {
        stream->Seek(0, STREAM_SEEK_SET, nullptr);
        return CoMarshalInterface(stream.Get(), IID_ICounter, counter.Get(), context, nullptr,
                                  flags);
    }
    HRESULT Read(REFIID id = IID_ICounter) {
        stream->Seek(0, STREAM_SEEK_SET, nullptr);
        void* object = nullptr;
        const HRESULT result = CoUnmarshalInterface(stream.Get(), id, &object);
        EXPECT_EQ(object != nullptr, result == S_OK);
        const ComPointer held(static_cast<IUnknown*>(object));
        return result;
    }
    HRESULT Release() {
        stream->Seek(0, STREAM_SEEK_SET, nullptr);
        return CoReleaseMarshalData(stream.Get());
    }

    SessionBus bus;
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 0);
    ComPointer<ICounter> counter{new Counter};
    const ComPointer<IStream> stream = StreamOn(block);
};

TEST_F(Marshal, ANormalPacketIsUsedOnce) {
    ASSERT_EQ(Write(MSHLFLAGS_NORMAL), S_OK);
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(Read(), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(Release(), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(ExportedInterfaceCount(), 0U);
}

TEST_F(Marshal, ATablePacketIsUsedUntilItsRelease) {
    ASSERT_EQ(Write(MSHLFLAGS_TABLESTRONG), S_OK);
    for (int use = 0; use < 3; ++use) EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(ExportedInterfaceCount(), 1U);
    EXPECT_EQ(Release(), S_OK);
    EXPECT_EQ(Read(), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(ExportedInterfaceCount(), 0U);
}

TEST_F(Marshal, APacketHoldsItsObjectUntilTheLastLeaves) {
    ASSERT_EQ(Write(MSHLFLAGS_TABLESTRONG), S_OK);
    counter = {};
    EXPECT_EQ(Counter::Living(), 1);
    EXPECT_EQ(CoInitialize(nullptr), S_FALSE);
    CoUninitialize();
    EXPECT_EQ(Counter::Living(), 1);
    CoUninitialize();
    EXPECT_EQ(Counter::Living(), 0);
    EXPECT_EQ(Read(), CO_E_NOTINITIALIZED);
    EXPECT_EQ(CoInitialize(nullptr), S_OK);
}

TEST_F(Marshal, WhatCannotBePassedIsRefused) {
    EXPECT_EQ(Write(2), E_INVALIDARG);
    EXPECT_EQ(Write(MSHLFLAGS_NORMAL, 1), E_INVALIDARG);
    GlobalLock(block);
    EXPECT_EQ(Write(MSHLFLAGS_NORMAL), STG_E_MEDIUMFULL) << "a locked block doesn't grow";
    GlobalUnlock(block);
    EXPECT_EQ(ExportedInterfaceCount(), 0U);
    ASSERT_EQ(Write(MSHLFLAGS_TABLESTRONG), S_OK);
    EXPECT_EQ(Read(IID_IStream), E_NOINTERFACE);
    EXPECT_EQ(Read(IID_IUnknown), S_OK);
    ULONG size = 0;
    std::thread([&] {
        EXPECT_EQ(CoGetMarshalSizeMax(&size, IID_ICounter, counter.Get(), MSHCTX_LOCAL, nullptr,
                                      MSHLFLAGS_NORMAL),
                  RPC_E_WRONG_THREAD);
    }).join();
    EXPECT_EQ(size, 0U);
}

TEST_F(Marshal, AWholePacketThatNamesNothingIsRefused) {
    constexpr std::tuple<const char*, std::int64_t, const char*, HRESULT> rows[] = {
        {"another interface", 8, "xxxx", E_INVALIDARG},
        {"another key", 24, "xxxxxxxx", CO_E_OBJNOTCONNECTED},
        {"a process that has never been", 32, ":9", RPC_E_DISCONNECTED},
    };
    for (const auto& [why, place, bytes, want] : rows) {
        ASSERT_EQ(Write(MSHLFLAGS_TABLESTRONG), S_OK);
        stream->Seek(place, STREAM_SEEK_SET, nullptr);
        stream->Write(bytes, static_cast<ULONG>(std::strlen(bytes)), nullptr);
        EXPECT_EQ(Read(), want) << why;
    }
}

TEST_F(Marshal, WithoutASessionBusNothingIsExported) {
    Environment environment;
    environment.Set("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");

    EXPECT_EQ(Write(MSHLFLAGS_NORMAL), RPC_E_SERVER_UNAVAILABLE);
    EXPECT_EQ(counter->AddRef(), 2U) << "no reference was kept";
    counter->Release();
}

}  // namespace
}  // namespace orvo
