// Of which to-dos the user is to be reminded, and when.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include <contracts/Dates.h>
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

std::vector<ToDoReminder> ReminderPlan::RemindersOf(const CToDoRecord& record) const {
    if (record.IsCompleted() || record.IsDeleted() || record.IsArchived()) return {};
    std::vector<ToDoReminder> reminders;
    ToDoText text;
    if (record.HasReminders() && ReadToDoText(record, text) == 0) reminders = ReadReminders(text);
    const std::optional<CivilTime> due = DueOf(record);
    if (due && m_options.IsAlarmSet() != 0) {
        ToDoReminder general;
        general.first =
            MomentOfCivil(TimeDue(*due, m_options.GetWorkDayBegins())) - Advance(m_options);
        reminders.push_back(general);
    }
    return reminders;
}

void ReminderPlan::Plan(const CToDoRecord& record, const ToldReminders& told) {
    m_next.erase(record.GetId());
    const std::int64_t after = told.Of(record.GetId());
    for (const ToDoReminder& reminder : RemindersOf(record)) {
        const std::optional<std::int64_t> next = reminder.Next(after);
        if (!next) continue;
        const auto place = m_next.emplace(record.GetId(), *next).first;
        place->second = std::min(place->second, *next);
    }
}

void ReminderPlan::Read(const ToldReminders& told) {
    CToDoRecord record(m_toDos);
    if (m_isRead) {
        for (const std::int64_t id : std::exchange(m_forgotten, {})) {
            m_next.erase(id);
            if (m_toDos.Find(id, record) == 0) Plan(record, told);
        }
        return;
    }
    m_isRead = true;
    m_forgotten.clear();
    m_next.clear();
    CToDoIterator walk(m_toDos);
    for (long status = walk.FindFirst(record); status == 0 || walk.IsAtDamage();
         status = walk.FindNext(record)) {
        if (status == 0) Plan(record, told);
    }
}

std::optional<DueReminder> ReminderPlan::TakeOne(std::int64_t id, std::int64_t now,
                                                 ToldReminders& told) {
    CToDoRecord record(m_toDos);
    m_next.erase(id);
    if (m_toDos.Find(id, record) != 0) return std::nullopt;
    DueReminder reminder{id, told.Of(id), DueOf(record), {}};
    const std::int64_t before = reminder.moment;
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
    Read(told);
    std::vector<std::int64_t> ids;
    for (const auto& [id, next] : m_next) {
        if (next <= now) ids.push_back(id);
    }
    std::vector<DueReminder> taken;
    for (const std::int64_t id : ids) {
        std::optional<DueReminder> reminder = TakeOne(id, now, told);
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
