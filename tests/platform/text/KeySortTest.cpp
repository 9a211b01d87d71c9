// Sorting by keys equals a stable sort of the keys.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <numeric>
#include <random>

#include <gmock/gmock.h>

#include <platform/text/KeySort.h>

namespace orvo {

namespace {

using Key = std::vector<std::string>;  // the parts

std::vector<std::uint32_t> Order(const std::vector<Key>& keys) {
    return KeySortedRows(keys.size(), [&](std::uint32_t row, std::size_t part, std::string& key) {
        if (part < keys[row].size()) key += keys[row][part];
    });
}

// Many keys begin with others, and the bytes are the least and the greatest.
TEST(KeySort, EqualsAStableSortOnRandomKeys) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        std::vector<Key> keys(random() % 200);
        for (Key& key : keys) {
            key.resize(random() % 4);
            for (std::string& part : key) {
                part.resize(1 + random() % 12);
                for (char& byte : part) byte = random() % 8 == 0 ? '\xFF' : '\0';
            }
        }
        std::vector<std::uint32_t> expected(keys.size());
        std::iota(expected.begin(), expected.end(), 0u);
        std::stable_sort(expected.begin(), expected.end(),
                         [&](auto left, auto right) { return keys[left] < keys[right]; });

        EXPECT_EQ(Order(keys), expected) << "round " << round;
    }
}

TEST(KeySort, APartIsAskedForOnlyWhereTheOnesBeforeItAreEqual) {
    std::vector<int> asked(3);
    KeySortedRows(3, [&](std::uint32_t row, std::size_t part, std::string& key) {
        ++asked[row];
        if (part == 0) key += row == 2 ? 'b' : 'a';
    });
    EXPECT_THAT(asked, testing::ElementsAre(2, 2, 1));
}

}  // namespace

}  // namespace orvo
