// Which to-dos the user is to be reminded of.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>

#include <contracts/RecordFields.h>
#include <desktop/reminder/DueReminders.h>
#include <host/Disclosure.h>
#include <platform/time/CTime.h>

namespace orvo::desktop {
namespace {

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 60 * kMinute;
constexpr std::int64_t kDay = 24 * kHour;

std::int64_t Advance(const COrvoDesktopOptions& options) {
    const int unit = options.GetAlarmAdvUnit();
    return options.GetAlarmAdvance() * (unit == 0 ? kMinute : unit == 1 ? kHour : kDay);
}

// When it is due, in the order of moments.
CivilTime TimeDue(CivilTime due, int workDayBegins) {
    return IsWholeDay(due) ? CivilTime{due.year, due.month, due.day, workDayBegins} : due;
}

std::string DescriptionOf(const StoredRow& row) {
    PackedFields fields;
    fields.Assign(row.fields);
    return std::string(fields.Get(static_cast<std::uint8_t>(ToDoField::Description)));
}

}  // namespace

bool IsWholeDay(const CivilTime& due) {
    const CivilTime start{due.year, due.month, due.day};
    const CivilTime end{due.year, due.month, due.day, 23, 59, 59};
    return due == start || due == end;
}

std::vector<DueReminder> DueReminders(StoreEngine& engine, const COrvoDesktopOptions& options) {
    const std::int64_t until = CTime::GetCurrentTime().GetTime() + Advance(options);
    const Disclosure disclosure(options);
    const auto timeDue = [&options](const DueReminder& reminder) {
        return TimeDue(reminder.due, options.GetWorkDayBegins());
    };
    std::vector<DueReminder> found;
    const std::unique_ptr<StoreCursor> cursor = engine.Walk(TableKind::ToDo);
    StoredRow row;
    StoreStatus status = cursor ? cursor->Next(row) : StoreStatus::End;
    for (; status != StoreStatus::End; status = cursor->Next(row)) {
        // The walk goes on behind a row that is damaged.
        if (status != StoreStatus::Ok || !row.due || (row.flags & RowFlag::Completed) != 0) {
            continue;
        }
        DueReminder reminder{row.id, *row.due, {}};
        if (MomentOfCivil(timeDue(reminder)) > until) continue;
        const bool isPrivate = (row.flags & RowFlag::Private) != 0;
        const Told told = disclosure.Of(WayOut::Reminder, isPrivate);
        if (told == Told::Nothing) continue;
        if (told == Told::Whole) reminder.description = DescriptionOf(row);
        found.push_back(std::move(reminder));
    }
    std::ranges::stable_sort(found, {}, timeDue);
    return found;
}

}  // namespace orvo::desktop
