// The peers without a screen: the suites of all peers run on them, and they stand exactly where
// their rules say.
// SPDX-License-Identifier: MIT
#include <random>
#include <tuple>

#include <gtest/gtest.h>

#include <contract/PeerSystem.h>
#include <platform/window/list/RowSelection.h>
#include <platform/window/memory/MemoryListPeer.h>
#include <platform/window/memory/MemoryWindowSystem.h>

namespace orvo {

std::unique_ptr<WindowSystem> MakeWindowSystem() {
    return std::make_unique<MemoryWindowSystem>();
}

bool RunUntil(WindowSystem& system, const std::function<bool()>& isDone) {
    for (int step = 0; step < 1000 && !isDone(); ++step) {
        dynamic_cast<MemoryWindowSystem&>(system).PassTime(1);
    }
    return isDone();
}

TEST(MemoryListPeer, RowsStandBelowTheHeadingAndIconsInLines) {
    MemoryListPeer list({nullptr, {0, 0, 160, 100}, LVS_REPORT});
    ListColumn column;
    column.width = 90;
    list.InsertColumn(0, column);
    for (int row = 0; row < 5; ++row) list.InsertRow(row, {});
    const std::tuple<const char*, ListMode, int, RowPart, CRect> rows[] = {
        {"below the heading", ListMode::Report, 0, RowPart::Bounds, {0, 20, 90, 38}},
        {"one row further down", ListMode::Report, 1, RowPart::Label, {0, 38, 90, 56}},
        {"two icons in a line", ListMode::Icon, 1, RowPart::Icon, {96, 2, 128, 34}},
        {"the third begins a line", ListMode::Icon, 2, RowPart::Label, {0, 111, 75, 150}},
        {"one small icon in a line", ListMode::SmallIcon, 2, RowPart::Icon, {0, 37, 16, 53}},
    };
    for (const auto& [why, mode, number, part, want] : rows) {
        list.SetMode(mode);
        CRect rect;
        EXPECT_TRUE(list.RowRect(number, part, rect)) << why;
        EXPECT_EQ(rect, want) << why;
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
            selection.SetRange(first, last, kind == 3);
            std::fill(flags.begin() + first, flags.begin() + last + 1, kind == 3);
        }
        std::vector<bool> got(flags.size());
        int count = 0;
        for (int row = selection.Next(-1); row != -1; row = selection.Next(row), ++count) {
            got[static_cast<std::size_t>(row)] = true;
        }
        ASSERT_EQ(got, flags) << "step " << step;
        ASSERT_EQ(selection.Count(), count);
    }
}

}  // namespace orvo
