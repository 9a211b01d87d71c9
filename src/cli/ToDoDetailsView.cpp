// What a to-do's calendar lines say, as it is printed.
// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <cli/CommandError.h>
#include <cli/PersonView.h>
#include <cli/ToDoDetailsView.h>
#include <exchange/calendar/Recurrence.h>
#include <exchange/calendar/ReminderText.h>
#include <exchange/calendar/Reminders.h>
#include <exchange/calendar/ToDoText.h>
#include <host/RepeatWords.h>

namespace orvo::cli {
namespace {

ToDoText TextOf(const CToDoRecord& record) {
    ToDoText text;
    if (ReadToDoText(record, text) != 0) {
        throw CommandError(kWrongUse, record.GetTable().LastError());
    }
    return text;
}

// A day where it has no time.
std::string MomentText(const CivilTime& civil) {
    const bool isDay = civil.hour == 0 && civil.minute == 0 && civil.second == 0;
    return isDay ? FormatIsoDay(civil) : FormatIso(civil);
}

std::vector<std::string> ReminderTexts(const CToDoRecord& record) {
    std::vector<std::string> texts;
    if (!record.HasReminders()) return texts;
    for (const ToDoReminder& reminder : ReadReminders(TextOf(record))) {
        texts.push_back(FormatReminder(reminder.time));
    }
    return texts;
}

// Where the UID is that of a to-do here, its description says more.
std::string ParentText(const CToDoRecord& record) {
    auto& table = static_cast<CToDoTable&>(record.GetTable());
    std::vector<std::int64_t> ids;
    CToDoRecord parent(table);
    const bool isThere = table.FindUid(record.ParentUid(), ids) == 0 && !ids.empty() &&
                         table.Find(ids.front(), parent) == 0 && parent.IsDeleted() == 0;
    if (!isThere || parent.IsPrivate() != 0) return std::string(record.ParentUid());
    return fmt::format("{} {}", parent.GetId(), parent.DescriptionUtf8());
}

void PrintOtherDates(const CToDoRecord& record) {
    if (!record.IsRepeating()) return;
    for (const Override& other : OverridesOf(TextOf(record))) {
        const std::optional<CivilTime> civil =
            other.date ? CivilOfMoment(other.date->moment) : std::nullopt;
        const bool isDay = other.date && other.date->form == CalendarDate::Form::Day;
        const std::string date = !civil ? "" : isDay ? FormatIsoDay(*civil) : FormatIso(*civil);
        PrintField("Other on " + date,
                   other.description + (other.isCompleted ? "  (completed)" : ""));
    }
}

}  // namespace

void AddToDoDetails(const CToDoRecord& record, Json& json) {
    const ToDoDetails details = record.GetDetails();
    const auto text = [](const std::string& value) { return value.empty() ? Json() : Json(value); };
    json["recurrence"] = text(details.recurrence);
    json["start"] = details.start ? Json(MomentText(*details.start)) : Json();
    json["percent"] = details.percent;
    json["parent"] = text(details.parent);
    json["reminders"] = ReminderTexts(record);
}

void PrintToDoDetails(const CToDoRecord& record) {
    const ToDoDetails details = record.GetDetails();
    if (details.start) PrintField("Starts", MomentText(*details.start));
    PrintField("Repeats", RepeatWordsOf(record));
    PrintOtherDates(record);
    if (details.percent != 0) PrintField("Done", fmt::format("{} %", details.percent));
    if (!details.parent.empty()) PrintField("Part of", ParentText(record));
    for (const std::string& reminder : ReminderTexts(record)) PrintField("Reminder", reminder);
}

}  // namespace orvo::cli
