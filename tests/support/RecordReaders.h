// The values of a record, each as a result.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

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
