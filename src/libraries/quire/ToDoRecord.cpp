// To-do records.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <fmt/format.h>

#include <contracts/Dates.h>
#include <contracts/RecordStore.h>
#include <platform/text/Charset.h>
#include <platform/time/CTime.h>

#include "ToDoSource.h"

namespace orvo {

namespace {

constexpr int kFirstPriority = 1;
constexpr int kLastPriority = 5;
constexpr auto kDescription = static_cast<std::uint8_t>(ToDoField::Description);

long DateOf(const std::optional<CivilTime>& civil) {
    return civil ? static_cast<long>(std::clamp<std::int64_t>(MomentOfCivil(*civil), 0, kMaxDate))
                 : kMaxDate;
}

std::optional<CivilTime> CivilOf(long date) {
    return date == kMaxDate ? std::nullopt : CivilOfMoment(date);
}

// A date that reads the same is left alone: it may be one that lies outside a record's range.
void Replace(std::optional<CivilTime>& civil, long date) {
    if (DateOf(civil) != date) {
        civil = CivilOf(date);
    }
}

// The moment of a row's date. Until a new record is stored it keeps its own, as an hour that the
// clock runs twice reads the same both times.
std::uint32_t MomentOf(const std::optional<CivilTime>& civil, std::uint32_t own, bool isNew) {
    return isNew && CivilOf(own) == civil ? own : static_cast<std::uint32_t>(DateOf(civil));
}

bool IsDate(long date) {
    return date >= 0 && date <= kMaxDate;
}

std::string NoDate(long date) {
    return fmt::format("a date is 0 to {} seconds, not {}", kMaxDate, date);
}

}  // namespace

long maxDate() {
    return kMaxDate;
}

CToDoRecord::CToDoRecord(CToDoTable& table, unsigned short)
    : CBaseRecord(table, TableKind::ToDo), m_due(kMaxDate), m_completed(kMaxDate) {}

long CToDoRecord::GetDescription(CString& text) const {
    return GetText(kDescription, text);
}

long CToDoRecord::SetDescription(const CString& text) {
    return ChangeText(kDescription, text);
}

std::string_view CToDoRecord::DescriptionUtf8() const {
    return m_fields.Get(kDescription);
}

long CToDoRecord::SetDescriptionUtf8(std::string_view utf8) {
    return ChangeUtf8(kDescription, utf8);
}

long CToDoRecord::GetPriority(int& priority) const {
    priority = m_priority;
    return 0;
}

long CToDoRecord::SetPriority(int priority) {
    if (priority < kFirstPriority || priority > kLastPriority) {
        return Refuse(fmt::format("a priority is 1 to 5, not {}", priority));
    }
    return Change([=](Draft& draft) { draft.row.priority = priority; });
}

long CToDoRecord::GetDueDate(long& date) const {
    date = m_due;
    return 0;
}

long CToDoRecord::SetDueDate(long date) {
    if (!IsDate(date)) {
        return Refuse(NoDate(date));
    }
    SetNewMoment(m_due, date);
    return Change([=](Draft& draft) { Replace(draft.row.due, date); });
}

long CToDoRecord::SetCompleted(int state, int markDate) {
    const std::int64_t now = CTime::GetCurrentTime().GetTime();
    if (state == 0) return SetState(false, {});
    if (IsCompleted() == 0) return CompleteOn(markDate != 0 ? static_cast<long>(now) : kMaxDate);
    return SetState(true, markDate != 0 ? std::optional(static_cast<long>(now)) : std::nullopt);
}

long CToDoRecord::CompleteOn(long completionDate) {
    if (!IsDate(completionDate)) {
        return Refuse(NoDate(completionDate));
    }
    ToDoSeries* const series = static_cast<CToDoTable&>(GetTable()).Series();
    if (series && GetId() != 0 && IsRepeating() && IsCompleted() == 0) {
        bool isOver = false;
        const long status = series->CompleteOnce(*this, completionDate, isOver);
        if (status != 0 || !isOver) return status;
    }
    return SetState(true,
                    completionDate == kMaxDate ? std::nullopt : std::optional(completionDate));
}

// Without a date a completed one keeps the one that it has.
long CToDoRecord::SetState(bool isCompleted, std::optional<long> completionDate) {
    if (completionDate) SetNewMoment(m_completed, *completionDate);
    return Change([=](Draft& draft) {
        if (!isCompleted) {
            draft.row.flags &= ~RowFlag::Completed;
            draft.row.completed.reset();
            return;
        }
        draft.row.flags |= RowFlag::Completed;
        if (completionDate) draft.row.completed = CivilOf(*completionDate);
    });
}

long CToDoRecord::GetCompletionDate(long& date) const {
    date = m_completed;
    return 0;
}

long CToDoRecord::SetCompletionDate(long date) {
    if (!IsDate(date)) {
        return Refuse(NoDate(date));
    }
    SetNewMoment(m_completed, date);
    return Change([=](Draft& draft) { Replace(draft.row.completed, date); });
}

ToDoDetails CToDoRecord::GetDetails() const {
    return {ParseIso(Detail(ToDoField::Start)), std::string(Detail(ToDoField::Recurrence)),
            std::string(ParentUid()), GetPercent(), HasReminders()};
}

long CToDoRecord::SetDetails(const ToDoDetails& details) {
    if (!IsValidUtf8(details.recurrence) || !IsValidUtf8(details.parent)) {
        return Refuse("the text isn't UTF-8");
    }
    return Change([&](Draft& draft) { PackDetails(details, draft.fields); });
}

long CToDoRecord::GetStartDate(long& date) const {
    date = DateOf(ParseIso(Detail(ToDoField::Start)));
    return 0;
}

int CToDoRecord::GetPercent() const {
    const std::string_view percent = Detail(ToDoField::Percent);
    return percent.empty() ? 0 : std::clamp(int{static_cast<unsigned char>(percent[0])}, 0, 100);
}

void CToDoRecord::SetNewMoment(std::uint32_t& moment, long date) {
    if (GetId() == 0 && IsDate(date)) {
        moment = static_cast<std::uint32_t>(date);
    }
}

void CToDoRecord::ToRow(StoredRow& row) const {
    CBaseRecord::ToRow(row);
    row.priority = m_priority;
    row.due = CivilOf(m_due);
    row.completed = CivilOf(m_completed);
}

void CToDoRecord::FromRow(const StoredRow& row) {
    CBaseRecord::FromRow(row);
    m_priority = std::clamp(row.priority, kFirstPriority, kLastPriority);
    const bool isNew = row.id == 0;
    m_due = MomentOf(row.due, m_due, isNew);
    m_completed = MomentOf(row.completed, m_completed, isNew);
}

}  // namespace orvo
