// The peers without a screen keep the contract of peers, and stand exactly where their rules say.
// SPDX-License-Identifier: MIT
#include <random>

#include <contract/PeerContract.h>
#include <contract/TimerContract.h>
#include <platform/window/MemoryListPeer.h>
#include <platform/window/MemoryWindowSystem.h>
#include <platform/window/RowSelection.h>

namespace orvo {

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, ListPeerContract, MemoryWindowSystem);
INSTANTIATE_TYPED_TEST_SUITE_P(Memory, EditPeerContract, MemoryWindowSystem);

namespace {

struct MemoryClock {
    using System = MemoryWindowSystem;
    static bool Run(System& system, const std::function<bool()>& isDone) {
        for (int step = 0; step < 1000 && !isDone(); ++step) system.PassTime(1);
        return isDone();
    }
};
INSTANTIATE_TYPED_TEST_SUITE_P(Memory, TimerContract, MemoryClock);

TEST(MemoryTimers, TickAtTheirMomentsInTheOrderOfTime) {
    MemoryWindowSystem system;
    WindowSystem::SetCurrent(&system);
    struct Ticker : CWnd {
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_TIMER) ids.push_back(wParam);
            return CWnd::WindowProc(message, wParam, lParam);
        }
        std::vector<WPARAM> ids;
    };
    {
        Ticker window;
        window.Create(WS_POPUP, {0, 0, 10, 10}, nullptr, 0);
        window.SetTimer(1, 100);
        window.SetTimer(2, 40);

        system.PassTime(39);
        EXPECT_TRUE(window.ids.empty());
        system.PassTime(61);
        EXPECT_THAT(window.ids, testing::ElementsAre(2, 2, 1));
        system.PassTime(20);
        EXPECT_THAT(window.ids, testing::ElementsAre(2, 2, 1, 2));
    }
    WindowSystem::SetCurrent(nullptr);
}

TEST(MemoryListPeer, RowsStandBelowTheHeadingAndIconsInLines) {
    MemoryListPeer list({nullptr, {0, 0, 160, 100}, LVS_REPORT});
    ListColumn column;
    column.width = 90;
    list.InsertColumn(0, column);
    for (int row = 0; row < 5; ++row) list.InsertRow(row, {});
    struct Row {
        const char* why;
        ListMode mode;
        int row;
        RowPart part;
        CRect want;
    };
    const Row rows[] = {
        {"below the heading", ListMode::Report, 0, RowPart::Bounds, {0, 20, 90, 38}},
        {"one row further down", ListMode::Report, 1, RowPart::Label, {0, 38, 90, 56}},
        {"two icons in a line", ListMode::Icon, 1, RowPart::Icon, {96, 2, 128, 34}},
        {"the third begins a line", ListMode::Icon, 2, RowPart::Label, {0, 111, 75, 150}},
        {"one small icon in a line", ListMode::SmallIcon, 2, RowPart::Icon, {0, 37, 16, 53}},
    };
    for (const Row& row : rows) {
        list.SetMode(row.mode);
        CRect rect;
        ASSERT_TRUE(list.RowRect(row.row, row.part, rect)) << row.why;
        EXPECT_EQ(rect, row.want) << row.why;
    }
}

TEST(RowSelection, AgreesWithAListOfFlagsUnderRandomChanges) {
    std::mt19937 random(7);
    RowSelection selection;
    std::vector<bool> flags;
    const auto below = [&random](int limit) {
        return std::uniform_int_distribution<int>(0, limit - 1)(random);
    };
    for (int step = 0; step < 3000; ++step) {
        const int size = selection.Size();
        const int kind = below(5);
        if (kind < 2 || size == 0) {
            const int row = below(size + 1);
            selection.Insert(row);
            flags.insert(flags.begin() + row, false);
        } else if (kind == 2) {
            const int row = below(size);
            selection.Erase(row);
            flags.erase(flags.begin() + row);
        } else {
            const int first = below(size);
            const int last = first + below(size - first);
            const int before = selection.Count();
            const int changed = selection.SetRange(first, last, kind == 3);
            std::fill(flags.begin() + first, flags.begin() + last + 1, kind == 3);
            ASSERT_EQ(selection.Count(), kind == 3 ? before + changed : before - changed);
        }
        std::vector<int> want;
        for (std::size_t row = 0; row < flags.size(); ++row) {
            if (flags[row]) want.push_back(static_cast<int>(row));
        }
        std::vector<int> got;
        for (int row = selection.Next(-1); row != -1; row = selection.Next(row)) {
            got.push_back(row);
        }
        ASSERT_EQ(got, want) << "step " << step;
        ASSERT_EQ(selection.Count(), static_cast<int>(want.size()));
    }
}

}  // namespace

}  // namespace orvo
