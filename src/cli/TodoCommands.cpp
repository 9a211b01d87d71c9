// todo: add a to-do, and edit rows of the list as a click would.
// SPDX-License-Identifier: MIT
#include <array>
#include <memory>
#include <optional>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/AddressFields.h>
#include <cli/Commands.h>
#include <cli/LocalDate.h>
#include <cli/Output.h>
#include <cli/TodoView.h>
#include <contracts/Dates.h>
#include <exchange/calendar/ToDoSeries.h>
#include <orvoshare/todo/TodoDates.h>

namespace orvo::cli {
namespace {

struct NewTodo {
    std::string text;
    int priority = 3;
    std::optional<std::string> due;
    std::optional<std::string> category;
    std::string note;
    bool isPrivate = false;
};

// What the commands that edit a row have in common.
struct RowEdit {
    TodoOptions list;
    int row = 0;
    std::string value;
    bool endsSeries = false;
};
// Whether the record now is as the edit wants it.
using Outcome = std::function<bool(const CToDoRecord&)>;
using RowChange = std::function<Outcome(Store&, TodoView&, const RowEdit&)>;

// The words of `due`, by the choices of the menu of dates.
constexpr std::array<const char*, 4> kDays{"today", "tomorrow", "week", "none"};
constexpr UINT kChooseDate = ID_TODO_DATE_LAST;

int AddTodo(Store& store, const NewTodo& todo, bool json) {
    Transaction transaction(store);
    CToDoRecord record(store.ToDos(), 1);
    store.Check(record.SetDescriptionUtf8(todo.text));
    store.Check(record.SetPriority(todo.priority));
    if (todo.due) store.Check(record.SetDueDate(DayOfText(*todo.due, "--due")));
    if (todo.category) {
        store.Check(record.SetCategoryId(CategoryIndexOrNew(store.ToDos(), *todo.category)));
    }
    store.Check(record.SetPrivate(todo.isPrivate));
    if (!todo.note.empty()) store.Check(record.SetNoteUtf8(todo.note));
    store.Check(store.ToDos().Add(record));
    transaction.Commit();
    if (json) {
        PrintJson({{"added", record.GetId()}});
    } else {
        PrintLine(fmt::format("added {}", record.GetId()));
    }
    return kDone;
}

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
    for (std::size_t choice = 0; choice < kDays.size(); ++choice) {
        if (edit.value != kDays[choice]) continue;
        view.ClickCell(edit.row, TodoColumn::DueDate,
                       ID_TODO_DATE_FIRST + static_cast<UINT>(choice));
        return HasDueDate(ChosenDate(static_cast<int>(choice), kMaxDate));
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

void RefuseEndOfSeries(Store& store, const CToDoRecord& record, const RowEdit& edit) {
    bool isRepeating = false;
    if (!edit.endsSeries) store.Check(ReadIsRepeating(record, isRepeating));
    if (!isRepeating) return;
    throw CommandError(kWrongUse,
                       fmt::format("row {} repeats; to complete it ends the whole series, "
                                   "which --end-series does",
                                   edit.row));
}

// A row that has the state already is left alone.
RowChange SetCompletedOfRow(bool completed) {
    return [completed](Store& store, TodoView& view, const RowEdit& edit) {
        Outcome outcome = [completed](const CToDoRecord& record) {
            return (record.IsCompleted() != 0) == completed;
        };
        const CToDoRecord& record = view.RecordAt(edit.row);
        if (outcome(record)) return outcome;
        if (completed) RefuseEndOfSeries(store, record, edit);
        view.ClickCell(edit.row, TodoColumn::Completed, 0);
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

// The record is looked at again by its id, as its row may have moved.
int EditRow(Store& store, const RowEdit& options, const RowChange& edit, bool json) {
    const WriteClaim claim(store);
    TodoView view(store, options.list);
    RefuseMasked(view, options.row);
    const std::int64_t id = view.RecordAt(options.row).GetId();
    const Outcome outcome = edit(store, view, options);
    CToDoRecord record(store.ToDos(), 1);
    const std::string hindrance = Hindrance(store, view);
    store.Check(store.ToDos().Find(id, record));
    if (!outcome(record)) {
        throw CommandError(kWrongUse,
                           fmt::format("row {} can't be changed: {}", options.row, hindrance));
    }
    if (json) {
        PrintJson({{"edited", id}});
    } else {
        PrintLine(fmt::format("edited {}: {}", id, record.DescriptionUtf8()));
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

void AddNew(CLI::App& todo, Invocation& invocation) {
    auto options = std::make_shared<NewTodo>();
    CLI::App* add = todo.add_subcommand("add", "Add a to-do");
    add->add_option("TEXT", options->text, "What is to be done")->required();
    add->add_option("--priority", options->priority, "1 (first) to 5; 3 where left out")
        ->check(CLI::Range(1, 5));
    add->add_option("--due", options->due, "The day, as 2026-12-24 or as the locale writes it");
    add->add_option("--category", options->category, "A category; a new one is made");
    add->add_option("--note", options->note, "A note");
    add->add_flag("--private", options->isPrivate, "Mark it as private");
    add->callback([options, &invocation] {
        invocation.command = [options, &invocation](Store& store) {
            return AddTodo(store, *options, invocation.json);
        };
    });
}

using RowCommand = std::function<int(Store&, const RowEdit&, bool json)>;

CLI::App* AddRowCommand(CLI::App& todo, Invocation& invocation, const char* name, const char* help,
                        const RowCommand& run, std::shared_ptr<RowEdit> options) {
    CLI::App* command = todo.add_subcommand(name, help);
    command->add_option("ROW", options->row, "A row number of `todos`")->required();
    AddTodoOptions(*command, options->list);
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
    AddNew(*todo, invocation);

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
    const auto [complete, completeOptions] =
        add("complete", "Complete a row", Editing(SetCompletedOfRow(true)));
    complete->add_flag("--end-series", completeOptions->endsSeries,
                       "Complete one that repeats, too, which ends the whole series");
    add("undo", "Take the completion of a row back", Editing(SetCompletedOfRow(false)));
    add("note-title", "Print the title for the note of a row", PrintNoteTitle);
    add("delete", "Delete the to-do of a row", DeleteRow);
}

}  // namespace orvo::cli
