// todo add, and todo edit: any fields of a to-do at once.
// SPDX-License-Identifier: MIT
#include <memory>
#include <optional>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/AddressFields.h>
#include <cli/LocalDate.h>
#include <cli/Output.h>
#include <cli/RepeatText.h>
#include <cli/TodoEditCommands.h>
#include <cli/TodoView.h>
#include <contracts/Dates.h>
#include <exchange/calendar/SeriesEdits.h>
#include <exchange/calendar/ToDoParent.h>
#include <orvoshare/todo/TodoDates.h>

namespace orvo::cli {
namespace {

// What a command line says of a to-do; what it leaves out stays.
struct TodoFields {
    std::optional<std::string> text;
    std::optional<int> priority;
    std::optional<std::string> due;
    std::optional<std::string> start;
    std::optional<std::string> category;
    std::optional<std::string> note;
    std::optional<std::string> repeat;
    std::optional<std::string> parent;
    std::optional<int> percent;
    bool isPrivate = false;
};

struct RowOrder {
    TodoOptions list;
    int row = 0;
    TodoFields fields;
};

constexpr const char* kNone = "none";

// kMaxDate for none.
long DateOf(const std::string& text, const char* option) {
    const std::optional<int> choice = DateChoiceOfText(text);
    return choice ? ChosenDate(*choice, kMaxDate) : DayOfText(text, option);
}

std::optional<CivilTime> StartOf(const std::string& text) {
    const long date = DateOf(text, "--start");
    return date == kMaxDate ? std::nullopt : CivilOfMoment(date);
}

std::string UidOf(const CToDoRecord& record) {
    RowIdentity identity;
    return record.GetIdentity(identity) == 0 ? identity.uid : std::string();
}

// The UID that `--parent` names: that of a row of the list, or one of a to-do that is there.
std::string ParentOf(Store& store, const std::string& text, const TodoOptions& list) {
    if (text == kNone) return {};
    if (text.find_first_not_of("0123456789") == std::string::npos && text.size() < 10) {
        TodoView view(store, list);
        return UidOf(view.RecordAt(std::stoi(text)));
    }
    std::vector<std::int64_t> ids;
    store.Check(store.ToDos().FindUid(text, ids));
    if (!ids.empty()) return text;
    throw CommandError(kNothingFound,
                       fmt::format("--parent {}: there is no to-do of that row or UID", text));
}

// The edits on the to-do as a text of a calendar.
class TextEdits {
public:
    TextEdits(Store& store, const TodoFields& fields, const TodoOptions& list) : m_fields(fields) {
        if (fields.start) m_start = StartOf(*fields.start);
        if (fields.repeat) m_rule = ReadRepeat(*fields.repeat);
        if (fields.parent) m_parent = ParentOf(store, *fields.parent, list);
    }

    // Fails:    CommandError where the to-do has no date to repeat from, or is to be its own part.
    void Run(Store& store, CToDoRecord& record) const {
        if (!m_fields.start && !m_fields.repeat && !m_fields.parent && !m_fields.percent) return;
        if (!m_parent.empty() && m_parent == UidOf(record)) {
            throw CommandError(kWrongUse, "--parent: a to-do can't be a part of itself");
        }
        bool isDated = true;
        store.Check(EditToDoText(record, [&](ToDoText& text) {
            if (m_fields.start) SetStartDay(text, m_start);
            if (m_fields.repeat) isDated = SetRule(text, m_rule ? FormatRepeatRule(*m_rule) : "");
            if (m_fields.parent) WithParent(text, m_parent);
            if (m_fields.percent) WithPercent(text, *m_fields.percent);
            return isDated;
        }));
        if (isDated) return;
        throw CommandError(kWrongUse,
                           "--repeat: the to-do has no date to repeat from; --due or --start "
                           "gives it one");
    }

private:
    const TodoFields& m_fields;
    std::optional<CivilTime> m_start;
    std::optional<RepeatRule> m_rule;
    std::string m_parent;
};

void SetFields(Store& store, CToDoRecord& record, const TodoFields& fields) {
    if (fields.text) store.Check(record.SetDescriptionUtf8(*fields.text));
    if (fields.priority) store.Check(record.SetPriority(*fields.priority));
    if (fields.due) store.Check(record.SetDueDate(DateOf(*fields.due, "--due")));
    if (fields.category) {
        store.Check(record.SetCategoryId(CategoryIndexOrNew(store.ToDos(), *fields.category)));
    }
    if (fields.isPrivate) store.Check(record.SetPrivate(1));
    if (fields.note) store.Check(record.SetNoteUtf8(*fields.note));
}

int AddTodo(Store& store, const TodoFields& fields, bool json) {
    const TextEdits edits(store, fields, {});
    Transaction transaction(store);
    CToDoRecord record(store.ToDos(), 1);
    SetFields(store, record, fields);
    edits.Run(store, record);
    store.Check(store.ToDos().Add(record));
    transaction.Commit();
    if (json) {
        PrintJson({{"added", record.GetId()}});
    } else {
        PrintLine(fmt::format("added {}", record.GetId()));
    }
    return kDone;
}

std::int64_t IdOfRow(Store& store, const RowOrder& order, ExitCode& code) {
    TodoView view(store, order.list);
    CToDoRecord& record = view.RecordAt(order.row);
    if (view.List().IsRowMasked(view.List().GetItemData(order.row))) {
        throw CommandError(kWrongUse, fmt::format("row {} is masked", order.row));
    }
    code = view.Code();
    return record.GetId();
}

int EditTodo(Store& store, const RowOrder& order, bool json) {
    Transaction transaction(store);
    ExitCode code = kDone;
    const std::int64_t id = IdOfRow(store, order, code);
    const TextEdits edits(store, order.fields, order.list);
    CToDoRecord record(store.ToDos(), 1);
    store.Check(store.ToDos().Find(id, record));
    SetFields(store, record, order.fields);
    edits.Run(store, record);
    transaction.Commit();
    if (json) {
        PrintJson({{"edited", id}});
    } else {
        PrintLine(fmt::format("edited {}: {}", id, record.DescriptionUtf8()));
    }
    return code;
}

void AddFieldOptions(CLI::App& command, TodoFields& fields) {
    command.add_option("--priority", fields.priority, "1 (first) to 5; 3 where left out")
        ->check(CLI::Range(1, 5));
    command.add_option("--due", fields.due,
                       "The day: 2026-12-24, or as the locale writes it, today, tomorrow, week, "
                       "none");
    command.add_option("--start", fields.start, "The day on which it begins, written likewise");
    command.add_option("--repeat", fields.repeat,
                       "How it comes again: none, daily, 'weekly on mon,fri until 2027-06-30', "
                       "'monthly on last fri', 'every 3 days, 10 times'");
    command.add_option("--category", fields.category, "A category; a new one is made");
    command.add_option("--note", fields.note, "A note");
    command.add_option("--percent", fields.percent, "How much of it is done, 0 to 99")
        ->check(CLI::Range(0, 99));
    command.add_option("--parent", fields.parent,
                       "The to-do that it is a part of: a row number of `todos`, a UID, or none");
}

}  // namespace

void AddTodoEditCommands(CLI::App& todo, Invocation& invocation) {
    auto fields = std::make_shared<TodoFields>();
    CLI::App* add = todo.add_subcommand("add", "Add a to-do");
    add->add_option("TEXT", fields->text, "What is to be done")->required();
    AddFieldOptions(*add, *fields);
    add->add_flag("--private", fields->isPrivate, "Mark it as private");
    add->callback([fields, &invocation] {
        invocation.command = [fields, &invocation](Store& store) {
            return AddTodo(store, *fields, invocation.json);
        };
    });

    auto order = std::make_shared<RowOrder>();
    CLI::App* edit = todo.add_subcommand("edit", "Change fields of a row");
    edit->add_option("ROW", order->row, "A row number of `todos`")->required();
    edit->add_option("--text", order->fields.text, "What is to be done");
    AddFieldOptions(*edit, order->fields);
    AddTodoOptions(*edit, order->list);
    edit->callback([order, &invocation] {
        invocation.command = [order, &invocation](Store& store) {
            return EditTodo(store, *order, invocation.json);
        };
    });
}

}  // namespace orvo::cli
