// todo: edit rows of the list as a click would.
// SPDX-License-Identifier: MIT
#include <memory>
#include <optional>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/AddressFields.h>
#include <cli/Commands.h>
#include <cli/ListedTodos.h>
#include <cli/LocalDate.h>
#include <cli/Output.h>
#include <cli/TodoEditCommands.h>
#include <cli/TodoView.h>
#include <contracts/Dates.h>
#include <orvoshare/todo/TodoDates.h>

namespace orvo::cli {
namespace {

// What the commands that edit a row have in common.
struct RowEdit {
    TodoOptions list;
    int row = 0;
    std::string value;
};
// Whether the record now is as the edit wants it.
using Outcome = std::function<bool(const CToDoRecord&)>;
using RowChange = std::function<Outcome(Store&, TodoView&, const RowEdit&)>;

constexpr UINT kChooseDate = ID_TODO_DATE_LAST;

Outcome SetPriorityOfRow(Store&, TodoView& view, const RowEdit& edit) {
    const int priority = edit.value.front() - '0';
    view.ClickCell(edit.row, TodoColumn::Priority,
                   ID_TODO_PRIORITY_FIRST + static_cast<UINT>(priority - 1));
    return [priority](const CToDoRecord& record) {
        int now = 0;
        return record.GetPriority(now) == 0 && now == priority;
    };
}

Outcome HasDueDate(long due) {
    return [due](const CToDoRecord& record) {
        long now = 0;
        return record.GetDueDate(now) == 0 && now == due;
    };
}

Outcome SetDueOfRow(Store&, TodoView& view, const RowEdit& edit) {
    if (const std::optional<int> choice = DateChoiceOfText(edit.value)) {
        view.ClickCell(edit.row, TodoColumn::DueDate,
                       ID_TODO_DATE_FIRST + static_cast<UINT>(*choice));
        return HasDueDate(ChosenDate(*choice, kMaxDate));
    }
    const std::time_t day = DayOfText(edit.value, "due");
    view.System().AnswerDay(CTime(day));
    view.ClickCell(edit.row, TodoColumn::DueDate, kChooseDate);
    return HasDueDate(day);
}

Outcome SetCategoryOfRow(Store& store, TodoView& view, const RowEdit& edit) {
    const int category = CategoryIndex(store.ToDos(), edit.value);
    view.ClickCell(edit.row, TodoColumn::Category,
                   ID_TODO_CATEGORY_FIRST + static_cast<UINT>(category));
    return [category](const CToDoRecord& record) {
        int now = -1;
        return record.GetCategoryId(now) == 0 && now == category;
    };
}

// A row that has the state already is left alone.
RowChange SetCompletedOfRow(bool completed) {
    return [completed](Store&, TodoView& view, const RowEdit& edit) {
        Outcome outcome = [completed](const CToDoRecord& record) {
            return (record.IsCompleted() != 0) == completed;
        };
        if (!outcome(view.RecordAt(edit.row))) view.ClickCell(edit.row, TodoColumn::Completed, 0);
        return outcome;
    };
}

// What stood in the way of an edit: a message that the view has shown, or the store's.
std::string Hindrance(Store& store, TodoView& view) {
    const std::vector<CString>& boxes = view.System().MessageBoxes();
    return boxes.empty() ? store.ToDos().LastError() : ToUtf8(boxes.back());
}

void RefuseMasked(TodoView& view, int row) {
    view.RecordAt(row);
    if (!view.List().IsRowMasked(view.List().GetItemData(row))) return;
    throw CommandError(kWrongUse, fmt::format("row {} is masked", row));
}

// Edits a row and reads its record again, by its id, as its row may have moved.
void Edit(Store& store, TodoView& view, const RowEdit& options, const RowChange& edit,
          CToDoRecord& record, const Outcome& isDone = {}) {
    RefuseMasked(view, options.row);
    const std::int64_t id = view.RecordAt(options.row).GetId();
    const Outcome outcome = edit(store, view, options);
    const std::string hindrance = Hindrance(store, view);
    store.Check(store.ToDos().Find(id, record));
    if (outcome(record) || (isDone && isDone(record))) return;
    throw CommandError(kWrongUse,
                       fmt::format("row {} can't be changed: {}", options.row, hindrance));
}

int EditRow(Store& store, const RowEdit& options, const RowChange& edit, bool json) {
    const WriteClaim claim(store);
    TodoView view(store, options.list);
    CToDoRecord record(store.ToDos(), 1);
    Edit(store, view, options, edit, record);
    if (json) {
        PrintJson({{"edited", record.GetId()}});
    } else {
        PrintLine(fmt::format("edited {}: {}", record.GetId(), record.DescriptionUtf8()));
    }
    return view.Code();
}

// The day by which a series is seen to move: that on which it is due, else that of its start.
long DayOf(const CToDoRecord& record) {
    long day = kMaxDate;
    if (record.GetDueDate(day) != 0 || day == kMaxDate) record.GetStartDate(day);
    return day;
}

// A to-do that repeats isn't completed by that but moves to its next date.
int CompleteRow(Store& store, const RowEdit& options, bool json) {
    const WriteClaim claim(store);
    TodoView view(store, options.list);
    const CToDoRecord& row = view.RecordAt(options.row);
    const bool isRepeating = row.IsRepeating() && row.IsCompleted() == 0;
    const long day = DayOf(row);
    CToDoRecord record(store.ToDos(), 1);
    Edit(store, view, options, SetCompletedOfRow(true), record,
         [&](const CToDoRecord& now) { return isRepeating && DayOf(now) != day; });
    const Json next = record.IsCompleted() != 0 ? Json(nullptr) : DayAsJson(DayOf(record));
    if (json) {
        Json edited{{"edited", record.GetId()}};
        if (isRepeating) edited["next"] = next;
        PrintJson(edited);
    } else if (!isRepeating) {
        PrintLine(fmt::format("edited {}: {}", record.GetId(), record.DescriptionUtf8()));
    } else {
        PrintLine(fmt::format(
            "completed {}: {}; {}", record.GetId(), record.DescriptionUtf8(),
            next.is_null() ? "that was the last one" : "next on " + next.get<std::string>()));
    }
    return view.Code();
}

int PrintNoteTitle(Store& store, const RowEdit& options, bool json) {
    TodoView view(store, options.list);
    RefuseMasked(view, options.row);
    const std::string title = ToUtf8(view.List().GetNoteTitle(options.row));
    if (json) {
        PrintJson({{"row", options.row}, {"title", title}});
    } else {
        PrintLine(title);
    }
    return view.Code();
}

int DeleteRow(Store& store, const RowEdit& options, bool json) {
    const WriteClaim claim(store);
    TodoView view(store, options.list);
    RefuseMasked(view, options.row);
    CToDoRecord& record = view.RecordAt(options.row);
    store.Check(store.ToDos().Delete(record));
    if (json) {
        PrintJson({{"deleted", record.GetId()}});
    } else {
        PrintLine(fmt::format("deleted {}", record.GetId()));
    }
    return view.Code();
}

using RowCommand = std::function<int(Store&, const RowEdit&, bool json)>;

CLI::App* AddRowCommand(CLI::App& todo, Invocation& invocation, const char* name, const char* help,
                        const RowCommand& run, std::shared_ptr<RowEdit> options) {
    CLI::App* command = todo.add_subcommand(name, help);
    command->add_option("ROW", options->row, "A row number of `todos`")->required();
    AddTodoOptions(*command, options->list);
    AddCategoryOption(*command, options->list);
    command->callback([options = std::move(options), run, &invocation] {
        invocation.command = [options, run, &invocation](Store& store) {
            return run(store, *options, invocation.json);
        };
    });
    return command;
}

RowCommand Editing(RowChange edit) {
    return [edit = std::move(edit)](Store& store, const RowEdit& options, bool json) {
        return EditRow(store, options, edit, json);
    };
}

}  // namespace

void AddTodoCommands(CLI::App& app, Invocation& invocation) {
    CLI::App* todo = app.add_subcommand("todo", "Add a to-do, or edit a row of the list");
    todo->require_subcommand(1);
    AddTodoEditCommands(*todo, invocation);

    const auto add = [&](const char* name, const char* help, const RowCommand& run) {
        auto options = std::make_shared<RowEdit>();
        return std::pair(AddRowCommand(*todo, invocation, name, help, run, options), options);
    };
    const auto [priority, priorityOptions] =
        add("priority", "Set the priority of a row", Editing(SetPriorityOfRow));
    priority->add_option("N", priorityOptions->value, "1 (first) to 5")
        ->required()
        ->check(CLI::IsMember({"1", "2", "3", "4", "5"}));
    const auto [due, dueOptions] = add("due", "Set the due date of a row", Editing(SetDueOfRow));
    due->add_option("DATE", dueOptions->value,
                    "today, tomorrow, week, none, or a day: 2026-12-24, or as the locale writes it")
        ->required();
    const auto [category, categoryOptions] =
        add("category", "Set the category of a row", Editing(SetCategoryOfRow));
    category->add_option("NAME", categoryOptions->value, "A category that is there")->required();
    add("complete", "Complete a row; one that repeats moves to its next date", CompleteRow);
    add("undo", "Take the completion of a row back", Editing(SetCompletedOfRow(false)));
    add("note-title", "Print the title for the note of a row", PrintNoteTitle);
    add("delete", "Delete the to-do of a row", DeleteRow);
}

}  // namespace orvo::cli
