// Arrays: positions at and behind the end.
// SPDX-License-Identifier: MIT
#include <stdexcept>

#include <gtest/gtest.h>

#include <platform/text/Arrays.h>

namespace orvo {

namespace {

TEST(Array, RemovingEndsAtTheEndAndInsertingBehindItFillsUp) {
    CStringArray texts;
    EXPECT_EQ(texts.Add("a"), 0);
    texts.InsertAt(2, "c");
    texts.InsertAt(0, "_");
    ASSERT_EQ(texts.GetSize(), 4);
    EXPECT_EQ(texts[2], "");
    EXPECT_EQ(texts[3], "c");

    texts.RemoveAt(1, -1);
    EXPECT_EQ(texts.GetSize(), 4);
    texts.RemoveAt(1, 2147483647);
    EXPECT_EQ(texts.GetUpperBound(), 0);
}

TEST(Array, APositionOutsideIsAFaultOfTheCaller) {
    CStringArray texts;
    texts.Add("a");

    EXPECT_THROW(texts.GetAt(1), std::out_of_range);
    EXPECT_THROW(texts.SetAt(-1, ""), std::out_of_range);
    EXPECT_THROW(texts.RemoveAt(1), std::out_of_range);
    EXPECT_THROW(texts.InsertAt(-1, ""), std::out_of_range);
}

}  // namespace

}  // namespace orvo
