// What every window system's timers must do; a suite over the system and its clock.
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <functional>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <platform/window/CWnd.h>
#include <platform/window/WindowSystem.h>

namespace orvo {

// A clock names its System, and Run lets the system's time go by until a condition holds, or gives
// false where it never does.
template <class Clock>
class TimerContract : public testing::Test {
protected:
    class Window : public CWnd {
    public:
        static const MessageMap& ThisMap() {
            static const MessageMap map{CWnd::ThisMap(), {On<WM_TIMER>(&Window::OnTimer)}};
            return map;
        }
        const MessageMap& GetMessageMap() const override { return ThisMap(); }

        int TicksOf(UINT_PTR id) const {
            return static_cast<int>(std::count(ticks.begin(), ticks.end(), id));
        }

        std::vector<UINT_PTR> ticks;
        std::function<void(UINT_PTR)> onTick = [](UINT_PTR) {};

    private:
        void OnTimer(UINT_PTR id) {
            ticks.push_back(id);
            onTick(id);
        }
    };

    void SetUp() override {
        WindowSystem::SetCurrent(&system);
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
        ASSERT_TRUE(Clock::Run(system, [&] { return marker.TicksOf(1) >= before + 3; }));
        marker.KillTimer(1);
    }

    typename Clock::System system;
    Window window;
    Window marker;
};
TYPED_TEST_SUITE_P(TimerContract);

TYPED_TEST_P(TimerContract, ATimerTicksAgainAndAgainUntilItIsKilled) {
    EXPECT_EQ(this->window.SetTimer(7, 1), 7U);
    EXPECT_TRUE(this->window.ticks.empty());
    ASSERT_TRUE(TypeParam::Run(this->system, [this] { return this->window.TicksOf(7) == 3; }));

    EXPECT_TRUE(this->window.KillTimer(7));
    EXPECT_FALSE(this->window.KillTimer(7));
    this->Pass();

    EXPECT_EQ(this->window.TicksOf(7), 3);
}

TYPED_TEST_P(TimerContract, EachTimerOfAWindowTicksForItself) {
    this->window.SetTimer(1, 1);
    this->window.SetTimer(2, 1);
    this->window.KillTimer(1);

    ASSERT_TRUE(TypeParam::Run(this->system, [this] { return this->window.TicksOf(2) == 2; }));
    EXPECT_EQ(this->window.TicksOf(1), 0);
}

TYPED_TEST_P(TimerContract, ATimerThatIsSetAgainTakesTheNewTime) {
    this->window.SetTimer(1, 1);
    this->window.SetTimer(1, 3600000);
    this->Pass();
    EXPECT_EQ(this->window.TicksOf(1), 0);

    this->window.SetTimer(1, 1);
    EXPECT_TRUE(TypeParam::Run(this->system, [this] { return this->window.TicksOf(1) == 2; }));
}

TYPED_TEST_P(TimerContract, AHandlerMayKillItsTimerOrDestroyItsWindow) {
    this->window.onTick = [this](UINT_PTR id) { this->window.KillTimer(id); };
    this->window.SetTimer(1, 1);
    this->Pass();
    EXPECT_EQ(this->window.TicksOf(1), 1);

    this->window.onTick = [this](UINT_PTR) { this->window.DestroyWindow(); };
    this->window.SetTimer(2, 1);
    this->window.SetTimer(3, 1);
    this->Pass();

    EXPECT_EQ(this->window.ticks.size(), 2U);
    EXPECT_EQ(this->window.SetTimer(4, 1), 0U) << "there is no window";
}

TYPED_TEST_P(TimerContract, WhatAHandlerStartsTicksToo) {
    this->window.onTick = [this](UINT_PTR id) {
        if (id == 1) this->window.SetTimer(2, 1);
        this->window.KillTimer(id);
    };
    this->window.SetTimer(1, 1);
    ASSERT_TRUE(TypeParam::Run(this->system, [this] { return this->window.TicksOf(2) == 1; }));
    EXPECT_THAT(this->window.ticks, testing::ElementsAre(1, 2));
}

REGISTER_TYPED_TEST_SUITE_P(TimerContract, ATimerTicksAgainAndAgainUntilItIsKilled,
                            EachTimerOfAWindowTicksForItself, ATimerThatIsSetAgainTakesTheNewTime,
                            AHandlerMayKillItsTimerOrDestroyItsWindow, WhatAHandlerStartsTicksToo);

}  // namespace orvo
