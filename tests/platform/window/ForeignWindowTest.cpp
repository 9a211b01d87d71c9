// Messages to windows of another process.
// SPDX-License-Identifier: MIT
#include <chrono>
#include <csignal>
#include <future>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <platform/com/SessionFixture.h>
#include <platform/io/Descriptor.h>
#include <platform/ipc/FileMapping.h>
#include <platform/ipc/MessageSocket.h>
#include <platform/window/BouncingWindow.h>

namespace orvo {
namespace {

struct ForeignWindow : testing::Test {
    ForeignWindow() {
        EXPECT_EQ(peer.Line(), "ready");
        target = FindPublishedWindow("a window/1");
        EXPECT_NE(target, nullptr);
    }

    LRESULT SendData(HWND receiver, const std::string& bytes) const {
        std::string copy = bytes;
        COPYDATASTRUCT data{5, copy.size(), copy.empty() ? nullptr : copy.data()};
        return SendMessage(receiver, WM_COPYDATA, WParamOf(sender.GetSafeHwnd()), LParamOf(&data));
    }

    // By which the target's process is reached.
    std::string Socket() const {
        const auto number = reinterpret_cast<std::uint64_t>(target) >> 32U;
        return (runtime.Folder() / "orvo" / fmt::format("{:08x}.window", number)).string();
    }

    const ScratchRuntime& runtime = ScratchRuntime::Get();
    Program peer{FOREIGN_PEER, {"a window/1"}};
    BouncingWindow sender;
    HWND target = nullptr;
};

TEST_F(ForeignWindow, BlocksOfAnySizeCome) {
    for (const std::size_t size : {0UL, 1UL, 4096UL, 4097UL, 5000000UL}) {
        EXPECT_EQ(SendData(target, std::string(size, '\x02')), static_cast<LRESULT>(5 + 2 * size));
    }
}

TEST_F(ForeignWindow, MessagesGoToAndFroWhileEachSideWaits) {
    const WPARAM self = WParamOf(GlobalHandleOf(sender.GetSafeHwnd()));
    EXPECT_EQ(SendMessage(target, WM_APP, self, 20), 20);
}

TEST_F(ForeignWindow, AWindowOfTheProcessHasTwoHandles) {
    EXPECT_EQ(SendData(sender.GetSafeHwnd(), ""), 5);
    EXPECT_EQ(SendData(GlobalHandleOf(sender.GetSafeHwnd()), ""), 5);
    EXPECT_EQ(GlobalHandleOf(nullptr), nullptr);
}

TEST_F(ForeignWindow, AddressesStayInTheirProcess) {
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(SendMessage(target, WM_SETTEXT, 0, LParamOf("text")), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);

    // The receiver refuses as well, whatever another program sends.
    std::int64_t result = 0;
    const auto number = reinterpret_cast<std::uint64_t>(target);
    const ProcessMessage text{static_cast<std::uint32_t>(number), WM_SETTEXT, 0, 1, 0, {}};
    EXPECT_EQ(SendToProcess(number >> 32U, text, 20000, result), SendOutcome::NotTaken);
}

TEST_F(ForeignWindow, AWindowThatHasGoneIsToldApart) {
    EXPECT_EQ(SendMessage(target, WM_CLOSE), 0);
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(SendData(target, "x"), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_WINDOW_HANDLE);
    EXPECT_EQ(peer.Wait(), 0);
    EXPECT_EQ(FindPublishedWindow("a window/1"), nullptr);
}

TEST_F(ForeignWindow, AKilledProcessLeavesNothingForLong) {
    peer.Kill();
    peer.Wait();
    EXPECT_EQ(FindPublishedWindow("a window/1"), nullptr);
    EXPECT_EQ(SendData(target, "x"), 0);

    Program next{FOREIGN_PEER, {"a window/1"}};
    EXPECT_EQ(next.Line(), "ready");
    const HWND found = FindPublishedWindow("a window/1");
    EXPECT_NE(found, target);
    EXPECT_EQ(SendData(found, "\x01"), 6);
    EXPECT_EQ(SendData(target, "x"), 0) << "the old handle names nobody";
    EXPECT_FALSE(fs::exists(Socket()));
}

TEST_F(ForeignWindow, AMessageWaitsHoweverLongForAReceiverThatLives) {
    using namespace std::chrono_literals;
    peer.Signal(SIGSTOP);
    const auto end = std::async(std::launch::async, [this] {
        std::this_thread::sleep_for(5500ms);  // more than what any limit of old was
        peer.Kill();
    });
    EXPECT_EQ(SendData(target, "x"), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_WINDOW_HANDLE);
}

TEST_F(ForeignWindow, WhatIsNoMessageHarmsNobody) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    Socket().copy(address.sun_path, sizeof address.sun_path - 1);
    for (const std::size_t size : {1UL, 48UL, 4000UL, 9000UL}) {
        const Descriptor socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
        ASSERT_EQ(
            ::connect(socket.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof address),
            0);
        const std::string bytes(size, 'x');
        ASSERT_EQ(::send(socket.Number(), bytes.data(), size, 0), static_cast<ssize_t>(size));
        char answer = 0;
        EXPECT_EQ(::recv(socket.Number(), &answer, 1, 0), 0) << "hung up";
    }
    EXPECT_EQ(SendData(target, "\x01"), 6);
}

}  // namespace
}  // namespace orvo
