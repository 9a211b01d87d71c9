// Categories of tables and records, for tests.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string_view>

#include <gtest/gtest.h>

#include <contracts/RecordStore.h>

namespace orvo {

// Gives:    the index of the new category; -1 where the table refuses it, which fails the test.
inline int AddCategory(CBaseTable& table, std::string_view utf8) {
    auto category = std::make_unique<CCategory>();
    category->SetNameUtf8(utf8);
    if (table.GetCategoryManager()->Add(category.get()) != 0) {
        ADD_FAILURE() << utf8;
        return -1;
    }
    return category.release()->GetIndex();
}

inline int CategoryOf(const CBaseRecord& record) {
    int category = -1;
    EXPECT_EQ(record.GetCategoryId(category), 0);
    return category;
}

}  // namespace orvo
