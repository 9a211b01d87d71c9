// The values of a record, each as a result, and categories by their names.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <contracts/RecordStore.h>

namespace orvo {

// Where a value can't be read, the test fails.
template <class Record, class Value>
Value ValueOf(const Record& record, long (Record::*read)(Value&) const) {
    Value value{};
    EXPECT_EQ((record.*read)(value), 0) << record.GetTable().LastError();
    return value;
}

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

inline int CategoryOf(const CBaseRecord& record) {
    return ValueOf(record, &CBaseRecord::GetCategoryId);
}

inline int PlacementOf(const CBaseRecord& record) {
    return ValueOf(record, &CBaseRecord::GetPlacementPos);
}

// In UTF-8.
inline std::string NoteOf(const CBaseRecord& record) {
    return ValueOf(record, &CBaseRecord::GetNoteUtf8);
}

inline std::string SourceOf(const CBaseRecord& record) {
    return ValueOf(record, &CBaseRecord::GetSource);
}

inline std::string OriginOf(const CBaseRecord& record) {
    return ValueOf(record, &CBaseRecord::GetOrigin);
}

inline long DueDateOf(const CToDoRecord& record) {
    return ValueOf(record, &CToDoRecord::GetDueDate);
}

inline long CompletionDateOf(const CToDoRecord& record) {
    return ValueOf(record, &CToDoRecord::GetCompletionDate);
}

inline int PriorityOf(const CToDoRecord& record) {
    return ValueOf(record, &CToDoRecord::GetPriority);
}

}  // namespace orvo
