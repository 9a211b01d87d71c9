// Which to-dos the list shows, and which of them are private.
// SPDX-License-Identifier: MIT
#include <contracts/Dates.h>
#include <orvoshare/todo/TodoDates.h>
#include <orvoshare/todo/TodoListbox.h>

namespace orvo {

int CTodoListbox::PassThruFilter(CToDoRecord* record) {
    int category = kNoCategory;
    long due = kMaxDate;
    record->GetCategoryId(category);
    record->GetDueDate(due);
    const bool isOfCategory = m_nCategoryShown == kAllCategories || m_nCategoryShown == category;
    const bool isHidden = (m_bHideCompleted != 0 && record->IsCompleted() != 0) ||
                          (m_bHidePrivate != 0 && record->IsPrivate() != 0);
    const bool isUnstarted = m_bHideUnstarted != 0 && IsUnstarted(*record);
    const bool isTooEarly = m_bShowDueOnly != 0 && due != kMaxDate && IsDueTodayOrEarlier(due) == 0;
    return isOfCategory && !isHidden && !isUnstarted && !isTooEarly && record->IsArchived() == 0;
}

int CTodoListbox::IsDueTodayOrEarlier(long date) {
    return IsDueToday(date);
}

int CTodoListbox::IsRecordPrivate(DWORD data) {
    const auto* record = reinterpret_cast<const CToDoRecord*>(data);
    return record != nullptr && record->IsPrivate() != 0;
}

int CTodoListbox::IsPrivateRecordSelected() {
    POSITION position = GetFirstSelectedItemPosition();
    while (position) {
        if (IsRecordPrivate(GetItemData(GetNextSelectedItem(position))) != 0) return 1;
    }
    return 0;
}

}  // namespace orvo
