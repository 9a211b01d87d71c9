// What the timers of every window system must do.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <gmock/gmock.h>

#include <contract/PeerSystem.h>
#include <platform/window/base/CWnd.h>

namespace orvo {

namespace {

class TimerContract : public testing::Test {
protected:
    class Window : public CWnd {
    public:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message != WM_TIMER) return CWnd::WindowProc(message, wParam, lParam);
            ticks.push_back(wParam);
            onTick(wParam);
            return 0;
        }
        int TicksOf(UINT_PTR id) const {
            return static_cast<int>(std::count(ticks.begin(), ticks.end(), id));
        }

        std::vector<UINT_PTR> ticks;
        std::function<void(UINT_PTR)> onTick = [](UINT_PTR) {};
    };

    void SetUp() override {
        WindowSystem::SetCurrent(system.get());
        window.Create(WS_POPUP, {0, 0, 10, 10}, nullptr, 0);
        marker.Create(WS_POPUP, {0, 0, 10, 10}, nullptr, 0);
    }
    void TearDown() override {
        window.DestroyWindow();
        marker.DestroyWindow();
        WindowSystem::SetCurrent(nullptr);
    }

    // Time enough for every other timer of a millisecond to tick, if it still does.
    void Pass() {
        const int before = marker.TicksOf(1);
        marker.SetTimer(1, 1);
        ASSERT_TRUE(RunUntil(*system, [&] { return marker.TicksOf(1) >= before + 3; }));
        marker.KillTimer(1);
    }

    const std::unique_ptr<WindowSystem> system = MakeWindowSystem();
    Window window;
    Window marker;
};

TEST_F(TimerContract, ATimerTicksAgainAndAgainUntilItIsKilled) {
    EXPECT_EQ(window.SetTimer(7, 1), 7U);
    EXPECT_TRUE(window.ticks.empty());
    ASSERT_TRUE(RunUntil(*system, [&] { return window.TicksOf(7) == 3; }));

    EXPECT_TRUE(window.KillTimer(7));
    EXPECT_FALSE(window.KillTimer(7));
    Pass();

    EXPECT_EQ(window.TicksOf(7), 3);
}

TEST_F(TimerContract, EachTimerOfAWindowTicksForItselfAndTakesTheNewTimeWhereItIsSetAgain) {
    window.SetTimer(1, 1);
    window.SetTimer(1, 3600000);
    window.SetTimer(2, 1);
    ASSERT_TRUE(RunUntil(*system, [&] { return window.TicksOf(2) >= 2; }));
    EXPECT_EQ(window.TicksOf(1), 0);

    window.SetTimer(1, 1);
    window.KillTimer(2);
    EXPECT_TRUE(RunUntil(*system, [&] { return window.TicksOf(1) >= 2; }));
}

TEST_F(TimerContract, AHandlerMayKillItsTimerOrDestroyItsWindow) {
    window.onTick = [&](UINT_PTR id) { window.KillTimer(id); };
    window.SetTimer(1, 1);
    Pass();
    EXPECT_EQ(window.TicksOf(1), 1);

    window.onTick = [&](UINT_PTR) { window.DestroyWindow(); };
    window.SetTimer(2, 1);
    window.SetTimer(3, 1);
    Pass();

    EXPECT_EQ(window.ticks.size(), 2U);
    EXPECT_EQ(window.SetTimer(4, 1), 0U) << "there is no window";
}

TEST_F(TimerContract, WhatAHandlerStartsTicksToo) {
    window.onTick = [&](UINT_PTR id) {
        if (id == 1) window.SetTimer(2, 1);
        window.KillTimer(id);
    };
    window.SetTimer(1, 1);
    ASSERT_TRUE(RunUntil(*system, [&] { return window.TicksOf(2) == 1; }));
    EXPECT_THAT(window.ticks, testing::ElementsAre(1, 2));
}

}  // namespace

}  // namespace orvo
