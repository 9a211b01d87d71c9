// Of which to-dos the user is to be reminded, and when.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include <contracts/Dates.h>
#include <contracts/RecordFields.h>
#include <desktop/reminder/ReminderPlan.h>
#include <exchange/calendar/ToDoText.h>
#include <host/Disclosure.h>

namespace orvo::desktop {
namespace {

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 60 * kMinute;
constexpr std::int64_t kDay = 24 * kHour;

std::int64_t Advance(const COrvoDesktopOptions& options) {
    const int unit = options.GetAlarmAdvUnit();
    return options.GetAlarmAdvance() * (unit == 0 ? kMinute : unit == 1 ? kHour : kDay);
}

std::optional<CivilTime> DueOf(const CToDoRecord& record) {
    long date = kMaxDate;
    if (record.GetDueDate(date) != 0 || date == kMaxDate) return std::nullopt;
    return CivilOfMoment(date);
}

// When it is due, in the order of moments.
CivilTime TimeDue(CivilTime due, int workDayBegins) {
    return IsWholeDay(due) ? CivilTime{due.year, due.month, due.day, workDayBegins} : due;
}

}  // namespace

bool IsWholeDay(const CivilTime& due) {
    const CivilTime start{due.year, due.month, due.day};
    const CivilTime end{due.year, due.month, due.day, 23, 59, 59};
    return due == start || due == end;
}

void ReminderPlan::Clear() {
    m_walk.reset();
    m_isWalked = false;
}

void ReminderPlan::AddGeneral(const std::optional<CivilTime>& due,
                              std::vector<ToDoReminder>& reminders) const {
    if (!due || m_options.IsAlarmSet() == 0) return;
    ToDoReminder general;
    general.first = MomentOfCivil(TimeDue(*due, m_options.GetWorkDayBegins())) - Advance(m_options);
    reminders.push_back(general);
}

std::vector<ToDoReminder> ReminderPlan::RemindersOf(const CToDoRecord& record) const {
    if (record.IsCompleted() || record.IsDeleted() || record.IsArchived()) return {};
    std::vector<ToDoReminder> reminders;
    ToDoText text;
    if (record.HasReminders() && ReadToDoText(record, text) == 0) reminders = ReadReminders(text);
    AddGeneral(DueOf(record), reminders);
    return reminders;
}

void ReminderPlan::PlanNext(std::int64_t id, const std::vector<ToDoReminder>& reminders,
                            const ToldReminders& told) {
    m_next.erase(id);
    const std::int64_t after = told.Of(id);
    for (const ToDoReminder& reminder : reminders) {
        const std::optional<std::int64_t> next = reminder.Next(after);
        if (!next) continue;
        const auto place = m_next.emplace(id, *next).first;
        place->second = std::min(place->second, *next);
    }
}

void ReminderPlan::Plan(const CToDoRecord& record, const ToldReminders& told) {
    PlanNext(record.GetId(), RemindersOf(record), told);
}

// Most rows tell by themselves that nothing more is to be read of them.
void ReminderPlan::PlanRow(const StoredRow& row, const ToldReminders& told) {
    if ((row.flags & (RowFlag::Completed | RowFlag::Deleted | RowFlag::Archived)) != 0) return;
    PackedFields fields;
    fields.Assign(row.fields);
    if (!fields.Get(static_cast<std::uint8_t>(ToDoField::Reminders)).empty()) {
        CToDoRecord record(m_toDos);
        if (m_toDos.Find(row.id, record) == 0) Plan(record, told);
        return;
    }
    std::vector<ToDoReminder> reminders;
    AddGeneral(row.due, reminders);
    PlanNext(row.id, reminders, told);
}

// The walk goes on behind a row that is damaged.
bool ReminderPlan::Step(const ToldReminders& told) {
    if (!m_walk && !m_isWalked) {
        m_next.clear();
        m_forgotten.clear();
        m_walk = m_toDos.GetEngine().Walk(TableKind::ToDo);
    }
    if (m_walk) {
        StoredRow row;
        const StoreStatus status = m_walk->Next(row);
        if (status == StoreStatus::Ok) PlanRow(row, told);
        if (status == StoreStatus::End) m_walk.reset();
    }
    m_isWalked = m_walk == nullptr;
    if (!m_isWalked) return true;
    for (const std::int64_t id : std::exchange(m_forgotten, {})) {
        CToDoRecord record(m_toDos);
        m_next.erase(id);
        if (m_toDos.Find(id, record) == 0) Plan(record, told);
    }
    return false;
}

bool ReminderPlan::Read(std::chrono::milliseconds time, const ToldReminders& told) {
    const auto end = std::chrono::steady_clock::now() + time;
    while (Step(told)) {
        if (std::chrono::steady_clock::now() >= end) return false;
    }
    return true;
}

std::optional<DueReminder> ReminderPlan::TakeOne(std::int64_t id, std::int64_t before,
                                                 std::int64_t now, ToldReminders& told) {
    CToDoRecord record(m_toDos);
    m_next.erase(id);
    if (m_toDos.Find(id, record) != 0) return std::nullopt;
    DueReminder reminder{id, before, DueOf(record), {}};
    for (const ToDoReminder& each : RemindersOf(record)) {
        reminder.moment = std::max(reminder.moment, each.Last(now).value_or(before));
    }
    if (reminder.moment > before) told.Set(id, reminder.moment);
    Plan(record, told);
    const Told whole = Disclosure(m_options).Of(WayOut::Reminder, record);
    if (reminder.moment <= before || whole == Told::Nothing) return std::nullopt;
    reminder.isWhole = whole == Told::Whole;
    if (reminder.isWhole) reminder.description = record.DescriptionUtf8();
    return reminder;
}

std::vector<DueReminder> ReminderPlan::Take(std::int64_t now, ToldReminders& told) {
    while (Step(told)) {
    }
    // Behind many of them, one that is told may make others count as told.
    std::vector<std::pair<std::int64_t, std::int64_t>> come;
    for (const auto& [id, next] : m_next) {
        if (next <= now) come.emplace_back(id, next - 1);
    }
    std::vector<DueReminder> taken;
    for (const auto& [id, before] : come) {
        std::optional<DueReminder> reminder = TakeOne(id, before, now, told);
        if (reminder) taken.push_back(*std::move(reminder));
    }
    std::ranges::stable_sort(taken, {}, [this](const DueReminder& reminder) {
        return reminder.due ? MomentOfCivil(TimeDue(*reminder.due, m_options.GetWorkDayBegins()))
                            : reminder.moment;
    });
    return taken;
}

std::optional<std::int64_t> ReminderPlan::Next() const {
    const auto first =
        std::ranges::min_element(m_next, {}, [](const auto& each) { return each.second; });
    return first == m_next.end() ? std::nullopt : std::optional(first->second);
}

}  // namespace orvo::desktop
