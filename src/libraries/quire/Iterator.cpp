// Walks over a table.
// SPDX-License-Identifier: MIT
#include <utility>

#include <contracts/RecordStore.h>

namespace orvo {

namespace {

constexpr long kEnd = static_cast<long>(StoreStatus::End);
constexpr long kFailed = static_cast<long>(StoreStatus::Failed);

}  // namespace

CBaseIterator::CBaseIterator(CBaseTable& table) : m_table(table) {}

CBaseIterator::~CBaseIterator() = default;

long CBaseIterator::FindFirst(CBaseRecord& record, int) {
    return Begin(m_table.m_engine.Walk(m_table.m_kind), record);
}

long CBaseIterator::FindNext(CBaseRecord& record, int) {
    return m_begun ? Step(record) : FindFirst(record);
}

long CBaseIterator::Begin(std::unique_ptr<StoreCursor> cursor, CBaseRecord& record) {
    m_cursor = std::move(cursor);
    m_begun = true;
    m_isAtDamage = false;
    if (m_cursor) return Step(record);
    TellFailure();
    return kFailed;
}

void CBaseIterator::TellFailure() const {
    if (m_table.m_failed) m_table.m_failed(m_table.LastError(), !m_isAtDamage);
}

void CBaseIterator::End() {
    m_cursor.reset();
}

long CBaseIterator::Step(CBaseRecord& record) {
    m_isAtDamage = false;
    if (!m_cursor) {
        return kEnd;
    }
    if (record.m_kind != m_table.m_kind || &record.m_table.m_engine != &m_table.m_engine) {
        return m_table.RefuseRecord("the record is one of another table");
    }
    StoredRow row;
    const StoreStatus status = m_cursor->Next(row);
    const long result = status == StoreStatus::Ok ? record.Load(row) : static_cast<long>(status);
    m_isAtDamage = result == kFailed && row.id != 0;
    if (result == kFailed) TellFailure();
    return result;
}

CAddressIterator::CAddressIterator(CAddressTable& table) : CBaseIterator(table) {}

CToDoIterator::CToDoIterator(CToDoTable& table) : CBaseIterator(table) {}

long CToDoIterator::FindByCategoryId(int category, CToDoRecord& record, int) {
    const long status =
        Begin(m_table.GetEngine().WalkFromCategory(TableKind::ToDo, category), record);
    int found = 0;
    if (status == 0 && record.GetCategoryId(found) == 0 && found == category) {
        return status;
    }
    if (!IsAtDamage()) End();  // behind a damaged record the walk can go on
    return status != 0 ? status : kEnd;
}

}  // namespace orvo
