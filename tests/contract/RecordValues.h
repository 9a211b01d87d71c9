// Results of records, and categories by their names.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string_view>

#include <support/RecordReaders.h>

namespace orvo {

constexpr long kRefused = static_cast<long>(StoreStatus::Refused);
constexpr long kGone = static_cast<long>(StoreStatus::Gone);
constexpr long kFailed = static_cast<long>(StoreStatus::Failed);
constexpr long kBusy = static_cast<long>(StoreStatus::Busy);

// Adds a category of that name.
inline CatError AddCategory(CCategoryMgr& categories, std::string_view utf8) {
    auto category = std::make_unique<CCategory>();
    category->SetNameUtf8(utf8);
    const CatError error = categories.Add(category.get());
    if (error == 0) static_cast<void>(category.release());
    return error;
}

// -1 where there is no such category.
inline int CategoryIndex(CCategoryMgr& categories, std::string_view utf8) {
    CCategory* category = nullptr;
    return categories.FindUtf8Name(utf8, category) == 0 ? category->GetIndex() : -1;
}

inline CatError AddCategory(CBaseTable& table, std::string_view utf8) {
    return AddCategory(*table.GetCategoryManager(), utf8);
}

inline int CategoryIndex(CBaseTable& table, std::string_view utf8) {
    return CategoryIndex(*table.GetCategoryManager(), utf8);
}

}  // namespace orvo
