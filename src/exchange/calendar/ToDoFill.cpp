// New to-do records of what calendars say.
// SPDX-License-Identifier: MIT
#include <exchange/calendar/OldRule.h>
#include <exchange/calendar/ToDoEdits.h>
#include <exchange/calendar/ToDoFill.h>

namespace orvo {

long FillToDo(const ToDoFields& fields, const Origin& origin, CToDoRecord& record) {
    const long due = RecordDateOf(origin.due);
    const long completed = RecordDateOf(origin.completed);
    long status = record.SetDescriptionUtf8(fields.description);
    status |= record.SetPriority(fields.priority);
    if (!fields.note.empty()) status |= record.SetNoteUtf8(fields.note);
    if (due != kMaxDate) status |= record.SetDueDate(due);
    if (fields.isCompleted) status |= record.SetCompleted(1, 0);
    if (completed != kMaxDate) status |= record.SetCompletionDate(completed);
    status |= record.SetCategoryId(origin.category);
    if (fields.isPrivate) status |= record.SetPrivate(1);
    if (fields.isArchived) status |= record.SetArchived(1);
    return status;
}

ToDoDetails DetailsOf(std::string_view text, const ToDoFields& fields) {
    ToDoDetails details = ReadToDoDetails(text);
    details.start = fields.start;
    if (auto rule = RuleOfOldRule(details.recurrence)) details.recurrence = std::move(*rule);
    return details;
}

long KeepEdits(const CToDoRecord& base, const CToDoRecord& row, CToDoRecord& record) {
    ToDoValues was;
    ToDoValues now;
    ToDoValues file;
    if (!was.Read(base) || !now.Read(row) || !file.Read(record)) {
        return static_cast<long>(StoreStatus::Failed);
    }
    long status = 0;
    if (IsSameText(file.description, was.description)) {
        status |= record.SetDescriptionUtf8(now.description);
    }
    if (IsSameText(file.note, was.note)) status |= record.SetNoteUtf8(now.note);
    if (file.priority == was.priority) status |= record.SetPriority(now.priority);
    if (file.dueDate == was.dueDate) status |= record.SetDueDate(now.dueDate);
    if (file.isCompleted == was.isCompleted && file.completionDate == was.completionDate) {
        status |= record.SetCompleted(now.isCompleted ? 1 : 0, 0);
        if (now.isCompleted) status |= record.SetCompletionDate(now.completionDate);
    }
    if (file.category == was.category) status |= record.SetCategoryId(now.category);
    if (file.isPrivate == was.isPrivate) status |= record.SetPrivate(now.isPrivate ? 1 : 0);
    if (file.isArchived == was.isArchived) status |= record.SetArchived(now.isArchived ? 1 : 0);
    return status;
}

}  // namespace orvo
