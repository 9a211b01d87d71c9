// todos.
// SPDX-License-Identifier: MIT
#include <memory>

#include <CLI/CLI.hpp>
#include <cli/Commands.h>
#include <cli/ListColumns.h>
#include <cli/ListedTodos.h>
#include <host/ViewSections.h>

namespace orvo::cli {
namespace {

struct ListingOptions {
    TodoOptions list;
    std::string columns;
};

int PrintTodos(Store& store, const ListingOptions& options, bool json) {
    TodoView view(store, options.list);
    CTodoListbox& list = view.List();
    SetUpHeading(list, kTodoSection, options.columns);
    TextTable table(TableHeadings(list));
    for (int row = 0; row < list.GetItemCount(); ++row) {
        if (json) {
            PrintJson(TodoAsJson(view, row));
        } else {
            table.Add(TodoAsCells(view, row));
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
    AddCategoryOption(*todos, options->list);
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
