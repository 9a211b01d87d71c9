// The rows of the list of to-dos, as they are printed.
// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <cli/AddressFields.h>
#include <cli/IdentityView.h>
#include <cli/ListColumns.h>
#include <cli/ListedTodos.h>
#include <cli/ToDoDetailsView.h>
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
    AddToDoDetails(record, json);
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
