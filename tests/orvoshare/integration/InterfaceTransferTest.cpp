// Interfaces go from window to window, and what becomes of them where a process ends.
// SPDX-License-Identifier: MIT
#include <functional>
#include <memory>

#include <platform/com/SessionFixture.h>
#include <platform/ipc/FileMapping.h>
#include <platform/ipc/Waiting.h>
#include <platform/window/WindowFixture.h>

#include "PeerMessages.h"

namespace orvo {
namespace {

class Receiver : public CWnd {
public:
    Receiver() { Create(0, {0, 0, 10, 10}, nullptr, 0); }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != WM_COPYDATA) return CWnd::WindowProc(message, wParam, lParam);
        sender = WindowOf(wParam);
        tag = PointerOf<COPYDATASTRUCT>(lParam)->dwData;
        return TakeInterface(counter, lParam);
    }
    ComPointer<ICounter> counter;
    HWND sender = nullptr;
    UINT_PTR tag = 0;
};

class InterfaceTransfer : public testing::Test {
protected:
    InterfaceTransfer() {
        RegisterCounter();
        SetInterfaceTimeLimit(kLimit);
        SetMessageTimeLimit(kLimit);
        EXPECT_EQ(CoInitialize(nullptr), S_OK);
        EXPECT_EQ(peer.Line(), "ready");
        peerWindow = FindPublishedWindow("peer");
        EXPECT_NE(peerWindow, nullptr);
    }
    ~InterfaceTransfer() override {
        Counter::Partner() = {};
        window.counter = {};
        CoUninitialize();
        EXPECT_EQ(Counter::Living(), 0);
        EXPECT_EQ(GlobalBlockCount(), 0U);
    }

    LRESULT Ask(UINT message, LPARAM lParam = 0) const {
        return SendMessage(peerWindow, message, 0, lParam);
    }
    // The peer's counter comes here.
    LRESULT Fetch() const {
        return SendMessage(peerWindow, kSendInterface,
                           WParamOf(GlobalHandleOf(window.GetSafeHwnd())));
    }
    void Give(ICounter* counter, HWND receiver) {
        if (block == nullptr) {
            ASSERT_EQ(MarshalInterfaceIntoHandle(IID_ICounter, counter, &block, &size), S_OK);
        }
        EXPECT_EQ(SendInterfaceToHwnd(0, receiver, kTag, block, size), S_OK);
        GlobalLock(block);
        EXPECT_EQ(GlobalUnlock(block), 0) << "no lock but this one";
    }
    HRESULT ReleasePacket() {
        IStream* stream = nullptr;
        EXPECT_EQ(CreateStreamOnHGlobal(block, 1, &stream), S_OK);
        const ComPointer held(stream);
        return CoReleaseMarshalData(stream);
    }
    void ExpectDisconnected() const {
        std::int64_t total = 0;
        const HRESULT first = window.counter->Add(1, total);
        EXPECT_TRUE(first == RPC_E_DISCONNECTED || first == RPC_E_SERVER_DIED) << first;
        EXPECT_EQ(window.counter->Add(1, total), RPC_E_DISCONNECTED);
    }
    // A process's end is told a moment later.
    static bool ServeUntil(const std::function<bool()>& isSo) {
        while (!isSo()) {
            if (!ServeSources(kLimit)) return false;
        }
        return true;
    }

    static constexpr int kLimit = 20000;

    SystemInForce system;
    SessionBus bus;
    Program peer{INTERFACE_PEER, {"peer"}};
    Receiver window;
    HWND peerWindow = nullptr;
    HGLOBAL block = nullptr;
    DWORD size = 0;
};

// More calls than a process may have files open or a bus keeps answers waiting.
TEST_F(InterfaceTransfer, WhatTheObjectGivesComesBackAsItIsAndThousandsOfCallsLeaveNothingBehind) {
    constexpr int kCalls = 5000;
    ASSERT_EQ(Fetch(), S_OK);
    EXPECT_EQ(window.sender, peerWindow);
    EXPECT_EQ(window.tag, kTag);
    CallBytes same;
    const CallBytes big(3000000, 0xA5);
    EXPECT_EQ(window.counter->Echo(big, same), S_FALSE);
    EXPECT_EQ(same, big);
    EXPECT_EQ(window.counter->Echo({}, same), S_FALSE);
    EXPECT_TRUE(same.empty());
    EXPECT_EQ(window.counter->Throw(), RPC_E_SERVERFAULT);

    std::int64_t total = 0;
    for (int call = 0; call < kCalls; ++call) {
        ASSERT_EQ(window.counter->Add(2, total), S_OK) << call;
    }

    EXPECT_EQ(total, 2 * kCalls);
    EXPECT_EQ(Ask(kCountObjects), 1);
    EXPECT_EQ(Ask(kCountExports), 1);
    EXPECT_EQ(Ask(kCountBlocks), 0);
    EXPECT_EQ(ExportedInterfaceCount(), 0U);
}

TEST_F(InterfaceTransfer, CallsGoToAndFroWhileEachSideWaits) {
    const ComPointer<ICounter> own(new Counter);
    ASSERT_EQ(Fetch(), S_OK);
    Counter::Partner() = window.counter;
    Give(own.Get(), peerWindow);

    std::int64_t depth = 0;
    EXPECT_EQ(own->Bounce(20, depth), S_OK);
    EXPECT_EQ(depth, 20);
    EXPECT_EQ(Ask(kBouncePartner, 11), 11);

    Ask(kDropPartner);
    EXPECT_EQ(ReleasePacket(), S_OK);
}

TEST_F(InterfaceTransfer, OnePacketServesTwoWindowsAndGoesByItsRelease) {
    ComPointer<ICounter> own(new Counter);
    Receiver second;
    Give(own.Get(), peerWindow);
    Give(own.Get(), window.GetSafeHwnd());
    Give(own.Get(), second.GetSafeHwnd());
    EXPECT_EQ(window.counter.Get(), own.Get()) << "in its own process the object is itself";

    EXPECT_EQ(ReleasePacket(), S_OK);
    EXPECT_EQ(ExportedInterfaceCount(), 1U) << "the peer still holds it";
    EXPECT_EQ(Ask(kBouncePartner, 1), 1);
    Ask(kDropPartner);
    EXPECT_TRUE(ServeUntil([] { return ExportedInterfaceCount() == 0; }));
}

TEST_F(InterfaceTransfer, AReceiverThatDiesHoldsNothingAnyMore) {
    Give(ComPointer<ICounter>(new Counter).Get(), peerWindow);
    EXPECT_EQ(ReleasePacket(), S_OK);
    ASSERT_EQ(Counter::Living(), 1);
    peer.Kill();
    EXPECT_TRUE(ServeUntil([] { return Counter::Living() == 0; }));
}

TEST_F(InterfaceTransfer, ADeadExporterIsToldAtOnce) {
    ASSERT_EQ(Fetch(), S_OK);
    peer.Kill();
    peer.Wait();
    ExpectDisconnected();
    EXPECT_EQ(Ask(kCountObjects), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_WINDOW_HANDLE);
    EXPECT_EQ(FindPublishedWindow("peer"), nullptr);
}

TEST_F(InterfaceTransfer, AProcessThatStandsStillEndsNobodyElsesTime) {
    ASSERT_EQ(Fetch(), S_OK);
    SetInterfaceTimeLimit(50);
    SetMessageTimeLimit(50);
    peer.Signal(SIGSTOP);
    std::int64_t total = 0;

    EXPECT_EQ(window.counter->Add(1, total), RPC_E_TIMEOUT);
    EXPECT_EQ(Ask(kCountObjects), 0);
    EXPECT_EQ(GetLastError(), ERROR_TIMEOUT);

    SetInterfaceTimeLimit(kLimit);
    SetMessageTimeLimit(kLimit);
    peer.Signal(SIGCONT);
    EXPECT_EQ(window.counter->Add(1, total), S_OK);
    EXPECT_EQ(total, 2) << "the first call came late, but it came";
}

TEST_F(InterfaceTransfer, WithoutTheBusCallsFailAndNothingHangs) {
    ASSERT_EQ(Fetch(), S_OK);
    bus.Kill();
    ExpectDisconnected();
}

TEST_F(InterfaceTransfer, WhatIsNoPacketOrCannotBePackedLeavesNoBlockBehind) {
    void* object = &window;
    char bytes[] = "no packet of an interface, but long enough";
    COPYDATASTRUCT nowhere{kTag, 5, nullptr};
    EXPECT_EQ(GetInterfaceFromMemoryBlock(bytes, 0, IID_ICounter, &object), STG_E_READFAULT);
    EXPECT_EQ(GetInterfaceFromMemoryBlock(bytes, sizeof bytes, IID_ICounter, &object),
              E_INVALIDARG);
    EXPECT_EQ(GetInterfaceFromCopyData(&nowhere, IID_ICounter, &object), E_INVALIDARG);
    EXPECT_EQ(object, nullptr);

    const ComPointer<ICounter> own(new Counter);
    constexpr IID other{1, 2, 3, {}};
    EXPECT_EQ(MarshalInterfaceIntoHandle(other, own.Get(), &block, &size), REGDB_E_IIDNOTREG);
    RegisterInterface(other, &CounterProxy::Make, &CallCounter);
    EXPECT_EQ(MarshalInterfaceIntoHandle(other, own.Get(), &block, &size), E_NOINTERFACE);
    EXPECT_EQ(block, nullptr);
    EXPECT_EQ(size, 0U);
    EXPECT_EQ(GlobalBlockCount(), 0U);
}

}  // namespace
}  // namespace orvo
