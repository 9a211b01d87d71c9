// The rows of the list of to-dos, as they are printed.
// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <cli/AddressFields.h>
#include <cli/IdentityView.h>
#include <cli/ListColumns.h>
#include <cli/ListedTodos.h>
#include <contracts/Dates.h>
#include <orvoshare/resources/StringTable.h>
#include <orvoshare/todo/TodoDates.h>
#include <platform/time/CTime.h>

namespace orvo::cli {
Json DayAsJson(long date) {
    if (date == kMaxDate) return nullptr;
    const CTime day(date);
    return fmt::format("{:04}-{:02}-{:02}", day.GetYear(), day.GetMonth(), day.GetDay());
}

namespace {

// The start is a day where it has no time; the parent is named by its uid.
void AddDetails(const CToDoRecord& record, Json& json) {
    const ToDoDetails details = record.GetDetails();
    const auto text = [](const std::string& value) { return value.empty() ? Json() : Json(value); };
    json["recurrence"] = text(details.recurrence);
    json["start"] = nullptr;
    if (details.start) {
        const bool isDay =
            details.start->hour == 0 && details.start->minute == 0 && details.start->second == 0;
        json["start"] = isDay ? FormatIsoDay(*details.start) : FormatIso(*details.start);
    }
    json["percent"] = details.percent;
    json["parent"] = text(details.parent);
}

}  // namespace

Json TodoAsJson(TodoView& view, int row) {
    CTodoListbox& list = view.List();
    CToDoRecord& record = view.RecordAt(row);
    Json json{{"row", row}, {"id", record.GetId()}};
    if (list.IsRowMasked(list.GetItemData(row))) {
        json["private"] = true;
        json["masked"] = true;
        return json;
    }
    int priority = 0;
    long due = kMaxDate;
    record.GetPriority(priority);
    record.GetDueDate(due);
    const bool isCompleted = record.IsCompleted() != 0;
    json["description"] = std::string(record.DescriptionUtf8());
    json["priority"] = priority;
    json["due"] = DayAsJson(due);
    json["overdue"] = due != kMaxDate && !isCompleted && IsDueYesterdayOrEarlier(due) != 0;
    json["completed"] = isCompleted;
    AddDetails(record, json);
    json["category"] = StoredCategoryName(record.GetTable(), record);
    json["private"] = record.IsPrivate() != 0;
    AddIdentity(record, json);
    json["cells"] = Json::object();
    for (const int id : list.GetShownColumns()) {
        const TodoCell cell = list.GetCell(&record, id, false);
        const bool isPicture = ColumnOf(list, id).bPictureCell != 0;
        json["cells"][fmt::format("{}", id)] =
            isPicture ? Json(cell.picture != nullptr) : Json(ToUtf8(cell.text));
    }
    return json;
}

std::vector<std::string> TodoAsCells(TodoView& view, int row) {
    CTodoListbox& list = view.List();
    CToDoRecord& record = view.RecordAt(row);
    const bool isMasked = list.IsRowMasked(list.GetItemData(row));
    std::vector<std::string> cells{fmt::format("{}", row), fmt::format("{}", record.GetId())};
    for (const int id : list.GetShownColumns()) {
        if (isMasked) {
            cells.push_back(id == TodoColumn::Description ? ModuleText(kStringPrivate) : "");
            continue;
        }
        const TodoCell cell = list.GetCell(&record, id, false);
        std::string text = cell.picture != nullptr ? kPictureSign : ToUtf8(cell.text);
        if (cell.isOverdue) text += "!";
        cells.push_back(std::move(text));
    }
    return cells;
}

}  // namespace orvo::cli
