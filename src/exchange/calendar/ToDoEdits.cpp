// What must change on the lines of a to-do.
// SPDX-License-Identifier: MIT
#include <exchange/calendar/ToDoEdits.h>
#include <exchange/cards/CardEdits.h>
#include <platform/time/TimeZone.h>

namespace orvo {
namespace {

// A due date at the very start or end of a day means the day.
bool IsWholeDay(std::int64_t moment) {
    const std::optional<CivilTime> civil = CivilOfMoment(moment);
    if (!civil) return false;
    const CivilTime start{civil->year, civil->month, civil->day, 0, 0, 0};
    const CivilTime end{civil->year, civil->month, civil->day, 23, 59, 59};
    return *civil == start || *civil == end;
}

void SetParameter(EditedLine& line, std::string_view name, std::string_view value) {
    std::erase_if(line.parameters, [&](const std::string& source) {
        return StartsIgnoringCase(source, std::string(name) + "=");
    });
    if (!value.empty()) line.parameters.push_back(std::string(name).append("=").append(value));
}

}  // namespace

bool ToDoValues::Read(const CToDoRecord& record) {
    description = record.DescriptionUtf8();
    isCompleted = record.IsCompleted() != 0;
    isPrivate = record.IsPrivate() != 0;
    isArchived = record.IsArchived() != 0;
    long status = record.GetNoteUtf8(note);
    status |= record.GetPriority(priority);
    status |= record.GetDueDate(dueDate);
    status |= record.GetCompletionDate(completionDate);
    status |= record.GetCategoryId(category);
    return status == 0;
}

void ToDoEdits::Run(CalendarClock& clock, CategoryNames& categories) {
    EditTexts();
    EditPriority();
    EditDue(clock);
    EditCompletion(clock);
    if (m_origin.category != m_now.category) {
        EditCategories(m_edits, m_was.categories, PlaceOf(m_origin, m_was.categories),
                       categories.NameOf(m_now.category), m_dialect);
    }
    EditPrivate(m_edits, m_was.Line(ToDoProperty::Class), m_was.isPrivate, m_now.isPrivate);
    EditArchived(m_edits, m_was.Line(ToDoProperty::Archived), m_was.isArchived, m_now.isArchived);
}

void ToDoEdits::Set(ToDoProperty property, std::string_view value) {
    const std::ptrdiff_t line = m_was.Line(property);
    if (line == kNoLine && value.empty()) return;
    EditedLine& edited = line == kNoLine ? m_edits.Add(NameOf(property)) : m_edits.At(line);
    edited.value = value;
    edited.isRemoved = value.empty();
}

void ToDoEdits::EditTexts() {
    const std::string summary = Escape(m_now.description, m_dialect);
    const std::ptrdiff_t line = m_was.Line(ToDoProperty::Summary);
    if (line == kNoLine) {
        // Without a SUMMARY the note's first line would stand for it.
        if (!IsSameText(FirstLineOf(m_now.note), m_now.description)) {
            m_edits.Add(NameOf(ToDoProperty::Summary)).value = summary;
        }
    } else if (!IsSameText(m_was.description, m_now.description)) {
        EditedLine& edited = m_edits.At(line);
        edited.value = summary;
        edited.isRemoved = summary.empty() && m_now.note.empty();
    }
    if (!IsSameText(m_was.note, m_now.note)) {
        Set(ToDoProperty::Description, Escape(m_now.note, m_dialect));
    }
}

void ToDoEdits::EditPriority() {
    if (m_was.priority != m_now.priority) {
        Set(ToDoProperty::Priority, CalendarPriority(m_now.priority));
    }
}

void ToDoEdits::EditDue(CalendarClock& clock) {
    if (RecordDateOf(m_origin.due) == m_now.dueDate) return;
    // A to-do has either a due date or a duration.
    if (m_was.Line(ToDoProperty::Due) == kNoLine && m_was.dueDate != kMaxDate) {
        Set(ToDoProperty::Duration, {});
    }
    if (m_now.dueDate == kMaxDate) {
        Set(ToDoProperty::Due, {});
        return;
    }
    CalendarDate date = m_was.due;
    const bool isNew = m_dialect == Dialect::Calendar20;
    if (isNew && IsWholeDay(m_now.dueDate)) {
        date.form = CalendarDate::Form::Day;
    } else if (date.form == CalendarDate::Form::Day) {
        date.form = CalendarDate::Form::Floating;
    }
    const bool isZoned = date.form == CalendarDate::Form::Zoned;
    Set(ToDoProperty::Due, clock.Format(m_now.dueDate, date));
    const std::ptrdiff_t line = m_was.Line(ToDoProperty::Due);
    EditedLine& edited = line == kNoLine ? m_edits.LastAdded() : m_edits.At(line);
    SetParameter(edited, "VALUE", date.form == CalendarDate::Form::Day ? "DATE" : "");
    if (!isZoned || line == kNoLine) SetParameter(edited, "TZID", isZoned ? date.zone : "");
}

void ToDoEdits::EditCompletion(CalendarClock& clock) {
    const bool isSame =
        m_was.isCompleted == m_now.isCompleted &&
        (!m_now.isCompleted || RecordDateOf(m_origin.completed) == m_now.completionDate);
    if (isSame) return;
    const bool isNew = m_dialect == Dialect::Calendar20;
    const bool hasDate = m_now.isCompleted && m_now.completionDate != kMaxDate;
    const std::string_view open = isNew ? "NEEDS-ACTION" : "NEEDS ACTION";
    const bool hasPercent = m_was.Line(ToDoProperty::PercentComplete) != kNoLine;
    Set(ToDoProperty::Status, m_now.isCompleted ? "COMPLETED" : open);
    if (isNew || hasPercent) {
        Set(ToDoProperty::PercentComplete, m_now.isCompleted ? "100" : "");
    }
    const std::string date =
        hasDate ? clock.Format(m_now.completionDate, {0, CalendarDate::Form::Utc, {}}) : "";
    Set(ToDoProperty::Completed, date);
    const std::ptrdiff_t line = m_was.Line(ToDoProperty::Completed);
    if (line == kNoLine || !hasDate) return;
    SetParameter(m_edits.At(line), "TZID", "");
    SetParameter(m_edits.At(line), "VALUE", "");
}

}  // namespace orvo
