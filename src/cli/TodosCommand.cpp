// todos.
// SPDX-License-Identifier: MIT
#include <memory>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/AddressFields.h>
#include <cli/AddressView.h>
#include <cli/Commands.h>
#include <cli/ListColumns.h>
#include <cli/Output.h>
#include <cli/TodoView.h>
#include <contracts/Dates.h>
#include <host/ViewSections.h>
#include <orvoshare/resources/StringTable.h>
#include <orvoshare/todo/TodoDates.h>
#include <platform/time/CTime.h>

namespace orvo::cli {
namespace {

struct ListingOptions {
    TodoOptions list;
    std::string columns;
};

Json DueAsJson(long due) {
    if (due == kMaxDate) return nullptr;
    const CTime day(due);
    return fmt::format("{:04}-{:02}-{:02}", day.GetYear(), day.GetMonth(), day.GetDay());
}

Json RowAsJson(TodoView& view, int row) {
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
    json["due"] = DueAsJson(due);
    json["overdue"] = due != kMaxDate && !isCompleted && IsDueYesterdayOrEarlier(due) != 0;
    json["completed"] = isCompleted;
    json["category"] = StoredCategoryName(record.GetTable(), record);
    json["private"] = record.IsPrivate() != 0;
    json["cells"] = Json::object();
    for (const int id : list.GetShownColumns()) {
        const TodoCell cell = list.GetCell(&record, id, false);
        const bool isPicture = ColumnOf(list, id).bPictureCell != 0;
        json["cells"][fmt::format("{}", id)] =
            isPicture ? Json(cell.picture != nullptr) : Json(ToUtf8(cell.text));
    }
    return json;
}

std::vector<std::string> RowAsCells(TodoView& view, int row) {
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

int PrintTodos(Store& store, const ListingOptions& options, bool json) {
    TodoView view(store, options.list);
    CTodoListbox& list = view.List();
    SetUpHeading(list, kTodoSection, options.columns);
    TextTable table(TableHeadings(list));
    for (int row = 0; row < list.GetItemCount(); ++row) {
        if (json) {
            PrintJson(RowAsJson(view, row));
        } else {
            table.Add(RowAsCells(view, row));
        }
    }
    if (list.GetItemCount() == 0 && view.Code() == kDone)
        throw CommandError(kNothingFound, "there are no to-dos to list");
    if (!json) table.Print();
    return view.Code();
}

}  // namespace

void AddTodosCommand(CLI::App& app, Invocation& invocation) {
    auto options = std::make_shared<ListingOptions>();
    CLI::App* todos = app.add_subcommand("todos", "List the to-dos in order");
    AddTodoOptions(*todos, options->list);
    todos->add_flag("--mask-private", options->list.maskPrivate,
                    "Keep the rows of private to-dos, without their content");
    todos->add_option("--columns", options->columns,
                      "The columns, from now on: default, all, or ids parted by commas, such as "
                      "6,1,0 (an unknown id has all of them listed)");
    todos->callback([options, &invocation] {
        invocation.command = [options, &invocation](Store& store) {
            return PrintTodos(store, *options, invocation.json);
        };
    });
}

}  // namespace orvo::cli
