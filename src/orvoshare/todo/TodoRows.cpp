// The rows of the list of to-dos: each at its place in the order, each with its own record.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>

#include <orvoshare/text/SortedInsert.h>
#include <orvoshare/todo/TodoListbox.h>

namespace orvo {

CToDoRecord* CTodoListbox::RecordAt(int row) const {
    return reinterpret_cast<CToDoRecord*>(GetItemData(row));
}

void CTodoListbox::RemoveRow(int row) {
    const std::unique_ptr<CToDoRecord> leaving(RecordAt(row));
    ForgetMenuOf(leaving.get());
    m_records.Remove(leaving.get());
    DeleteItem(row);
}

int CTodoListbox::RemoveFiltered(int row) {
    RemoveRow(row);
    RedrawWindow(nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    return std::min(row, GetItemCount() - 1);
}

int CTodoListbox::Resort() {
    return SortItems(TodoCompareRecords, LParamOf(this));
}

int CTodoListbox::ReSort(int row) {
    CToDoRecord* record = RecordAt(row);
    if (record == nullptr) return -1;
    if (PassThruFilter(record) == 0) return RemoveFiltered(row);
    if (VerifyCurrentOrder(row) != 0) return row;
    Resort();
    const int place = FindItemByData(LParamOf(record));
    if (place != -1) SelectItem(place, 1);
    return place;
}

int CTodoListbox::ReSortSingleItem(int row) {
    CToDoRecord* record = RecordAt(row);
    if (record == nullptr) return -1;
    if (PassThruFilter(record) == 0) return RemoveFiltered(row);
    SetRedraw(0);
    DeleteItem(row);
    m_records.Remove(record);
    const int place = InsertRecord(0, record, 1);
    SelectItem(place, 1);
    SetRedraw(1);
    return place;
}

int CTodoListbox::VerifyCurrentOrder(int row) {
    const auto isBehind = [this](const CToDoRecord* above, const CToDoRecord* below) {
        return TodoCompareRecords(LParamOf(above), LParamOf(below), LParamOf(this)) == 1;
    };
    const CToDoRecord* record = RecordAt(row);
    if (record == nullptr) return 0;
    if (row != 0) {
        const CToDoRecord* above = RecordAt(row - 1);
        if (above == nullptr || isBehind(above, record)) return 0;
    }
    if (row == GetItemCount() - 1) return 1;
    const CToDoRecord* below = RecordAt(row + 1);
    return below != nullptr && !isBehind(record, below);
}

unsigned long CTodoListbox::GetIndexToInsert(CToDoRecord* record) {
    const int count = GetItemCount();
    if (count == 0) return 0;
    return GetSortedIndexToInsert(0, static_cast<unsigned long>(count - 1), LParamOf(record),
                                  TodoCompareRowToRecord, LParamOf(this));
}

int CTodoListbox::InsertRecord(int row, CToDoRecord* record, int sorted) {
    if (record == nullptr) return -1;
    std::unique_ptr<CToDoRecord> added(record);
    if (sorted != 0) row = static_cast<int>(GetIndexToInsert(record));
    const int place = COrvoUIListViewCtrl::InsertRecord(row, record, 0, 0);
    if (place != -1) {
        m_records.Add(added.release());
    } else {
        ForgetMenuOf(record);
    }
    return place;
}

}  // namespace orvo
