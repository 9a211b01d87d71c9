// Packets and who may use them, within one process.
// SPDX-License-Identifier: MIT
#include <thread>
#include <tuple>

#include <gtest/gtest.h>

#include <platform/com/Counter.h>
#include <platform/com/Marshal.h>
#include <platform/com/SessionFixture.h>
#include <platform/com/StreamOn.h>

namespace orvo {
namespace {

class Marshal : public testing::Test {
protected:
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
