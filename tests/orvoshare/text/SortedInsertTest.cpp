// Finding the place of a new row.
// SPDX-License-Identifier: MIT
#include <vector>

#include <gtest/gtest.h>

#include <orvoshare/text/SortedInsert.h>

namespace orvo {
namespace {

struct Rows {
    std::vector<int> values;
    int compares = 0;
};

int CompareRow(long row, long key, long context) {
    Rows& rows = *reinterpret_cast<Rows*>(context);
    ++rows.compares;
    const int value = rows.values.at(static_cast<std::size_t>(row));
    return value < key ? -1 : value > key ? 1 : 0;
}

unsigned long IndexFor(Rows& rows, long key) {
    return GetSortedIndexToInsert(0, rows.values.size() - 1, key, CompareRow,
                                  reinterpret_cast<long>(&rows));
}

TEST(SortedInsert, AmongEqualRowsFindsTheOneThatTheHalvingMeets) {
    Rows one{{2}};
    Rows atTheEnd{{1, 2}};
    Rows five{{2, 2, 2, 2, 2}};
    EXPECT_EQ(IndexFor(one, 2), 0U);
    EXPECT_EQ(IndexFor(atTheEnd, 2), 1U);
    EXPECT_EQ(IndexFor(five, 2), 2U);
}

TEST(SortedInsert, KeepsEveryListSortedWithAboutLogarithmicallyManyCompares) {
    for (int count = 1; count <= 300; ++count) {
        Rows rows;
        for (int i = 0; i < count; ++i) rows.values.push_back(i / 3 * 2);
        for (int key = -1; key <= count + 1; ++key) {
            rows.compares = 0;
            const auto index = static_cast<std::size_t>(IndexFor(rows, key));
            if (index > 0) {
                ASSERT_LE(rows.values[index - 1], key) << count;
            }
            if (index < rows.values.size()) {
                ASSERT_GE(rows.values[index], key) << count;
            }
            int log2 = 0;
            while ((1 << log2) < count) ++log2;
            ASSERT_LE(rows.compares, log2 + 2) << count;
        }
    }
}

}  // namespace
}  // namespace orvo
