// Categories by their names.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string_view>

#include <contracts/RecordStore.h>
#include <support/RecordReaders.h>

namespace orvo {

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
