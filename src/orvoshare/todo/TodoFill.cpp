// Filling the list of to-dos from a table.
// SPDX-License-Identifier: MIT
#include <memory>
#include <vector>

#include <orvoshare/todo/TodoDates.h>
#include <orvoshare/todo/TodoListbox.h>

namespace orvo {
namespace {

using Record = std::unique_ptr<CToDoRecord>;

bool IsRecordCategory(int index) {
    return index >= 0 && index < kCategoryCount;
}

bool IsOfCategory(const CToDoRecord& record, int index) {
    int category = -1;
    return record.GetCategoryId(category) == 0 && category == index;
}

}  // namespace

void CTodoListbox::AddAllItemData(CToDoTable* table) {
    m_pTable = table;
    if (table == nullptr) return;
    m_parts.emplace(*table);
    m_nextStart = kMaxDate;
    CToDoIterator iterator(*table);
    int row = GetItemCount();
    auto record = std::make_unique<CToDoRecord>(*table, 1);
    long found = iterator.FindFirst(*record, 1);
    for (; found == 0 || iterator.IsAtDamage(); found = iterator.FindNext(*record, 1)) {
        const bool isWhole = found == 0;
        if (isWhole) NoteNew(*record);
        if (!isWhole || PassThruFilter(record.get()) == 0) continue;
        InsertRecord(row, record.release(), 0);
        ++row;
        record = std::make_unique<CToDoRecord>(*table, 1);
    }
    Resort();
}

void CTodoListbox::NoteNew(const CToDoRecord& record) {
    m_parts->NoteNew(record.GetId(), record.ParentUid(), record.IsCompleted() != 0);
    NoteStart(record);
}

void CTodoListbox::NoteChange(const CToDoRecord& record) {
    if (!m_parts) return;
    m_parts->Note(record.GetId(), record.ParentUid(), record.IsCompleted() != 0);
    NoteStart(record);
}

void CTodoListbox::NoteStart(const CToDoRecord& record) {
    long start = kMaxDate;
    record.GetStartDate(start);
    if (start < m_nextStart && IsUnstarted(record)) m_nextStart = start;
}

void CTodoListbox::AddByCategory(CToDoIterator& iterator, CToDoTable& table) {
    CCategoryMgr* manager = table.GetCategoryManager();
    if (manager == nullptr) return;
    Record record = std::make_unique<CToDoRecord>(table, 1);
    CCategory* category = nullptr;
    for (manager->FindFirst(category); category != nullptr; manager->FindNext(category)) {
        const int index = category->GetIndex();
        if (!IsRecordCategory(index)) continue;
        long found = iterator.FindByCategoryId(index, *record, 1);
        for (; found == 0 || iterator.IsAtDamage(); found = iterator.FindNext(*record, 1)) {
            const bool isWhole = found == 0;
            if (!isWhole) continue;
            if (!IsOfCategory(*record, index)) break;
            if (PassThruFilter(record.get()) == 0) continue;
            InsertRecord(0, record.release(), 1);
            record = std::make_unique<CToDoRecord>(table, 1);
        }
    }
}

void CTodoListbox::DeleteAll() {
    std::vector<Record> records;
    const int count = GetItemCount();
    records.reserve(static_cast<std::size_t>(count));
    for (int row = 0; row < count; ++row) records.emplace_back(RecordAt(row));
    m_pMenuRecord = nullptr;
    m_records.Clear();
    DeleteAllItems();
}

void CTodoListbox::RefreshAllItemData(CToDoTable* table) {
    const CWaitCursor wait;
    SetRedraw(0);
    DeleteAll();
    AddAllItemData(table);
    SetRedraw(1);
    Invalidate(1);
    UpdateWindow();
}

}  // namespace orvo
