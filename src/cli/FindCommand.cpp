// find.
// SPDX-License-Identifier: MIT
#include <functional>
#include <memory>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/Commands.h>
#include <cli/ListColumns.h>
#include <cli/ListedAddresses.h>
#include <cli/ListedTodos.h>
#include <host/ViewSections.h>
#include <people/FindReader.h>

namespace orvo::cli {
namespace {

struct FindOptions {
    std::vector<std::string> words;
    bool onlyAddresses = false;
    bool onlyTodos = false;
};

// How the rows of a view are printed.
struct RowPrinter {
    std::vector<std::string> headings;
    std::function<Json(int row)> asJson;
    std::function<std::vector<std::string>(int row)> asCells;

    void Print(const std::vector<int>& rows, bool json) const {
        if (json) {
            for (const int row : rows) PrintJson(asJson(row));
        } else if (!rows.empty()) {
            TextTable table(headings);
            for (const int row : rows) table.Add(asCells(row));
            table.Print();
        }
    }
};

// What was found, and how the walk over the view ended.
struct Found {
    std::size_t count = 0;
    ExitCode code = kDone;

    void Add(std::size_t rows, ExitCode walk) {
        count += rows;
        if (walk != kDone) code = walk;
    }
};

// The rows of a view that hold what is looked for. A masked row holds nothing.
template <class View, class IsMasked>
std::vector<int> FoundRows(View& view, int count, const FindQuery& query, IsMasked isMasked) {
    std::vector<int> rows;
    for (int row = 0; row < count; ++row) {
        if (!isMasked(row) && query.Matches(FindTextOf(view.RecordAt(row)))) rows.push_back(row);
    }
    return rows;
}

void PrintFoundAddresses(Store& store, const FindQuery& query, bool json, Found& found) {
    AddressView view(store, ListOptions());
    CDetailViewAddrList& list = view.List();
    SetUpHeading(list, kListSection, "");
    const std::vector<int> rows = FoundRows(view, list.DV_GetItemCount(), query, [&](int row) {
        return list.IsRowMasked(list.DV_GetItemData(row)) != 0;
    });
    RowPrinter{AddressHeadings(list, false),
               [&](int row) { return AddressAsJson(view, false, row); },
               [&](int row) { return AddressAsCells(view, false, row); }}
        .Print(rows, json);
    found.Add(rows.size(), view.Code());
}

void PrintFoundTodos(Store& store, const FindQuery& query, bool json, Found& found) {
    TodoView view(store, TodoOptions());
    CTodoListbox& list = view.List();
    SetUpHeading(list, kTodoSection, "");
    const std::vector<int> rows = FoundRows(view, list.GetItemCount(), query, [&](int row) {
        return list.IsRowMasked(list.GetItemData(row)) != 0;
    });
    RowPrinter{TableHeadings(list), [&](int row) { return TodoAsJson(view, row); },
               [&](int row) { return TodoAsCells(view, row); }}
        .Print(rows, json);
    found.Add(rows.size(), view.Code());
}

int PrintFound(Store& store, const FindOptions& options, bool json) {
    const std::string typed = fmt::format("{}", fmt::join(options.words, " "));
    const FindQuery query(typed);
    if (query.IsEmpty()) throw CommandError(kWrongUse, "find: there is no word to look for");
    Found found;
    if (!options.onlyTodos) PrintFoundAddresses(store, query, json, found);
    if (!options.onlyAddresses) PrintFoundTodos(store, query, json, found);
    if (found.count == 0 && found.code == kDone) {
        throw CommandError(kNothingFound, fmt::format("nothing holds \"{}\"", typed));
    }
    return found.code;
}

}  // namespace

void AddFindCommand(CLI::App& app, Invocation& invocation) {
    auto options = std::make_shared<FindOptions>();
    CLI::App* find = app.add_subcommand("find", "List the addresses and to-dos that hold a text");
    find->add_option("TEXT", options->words,
                     "Words that must all be there, in any order, each as any part of any text; "
                     "digits also find a number that is written otherwise")
        ->required();
    CLI::Option* addresses =
        find->add_flag("--addresses", options->onlyAddresses, "Only addresses");
    find->add_flag("--todos", options->onlyTodos, "Only to-dos")->excludes(addresses);
    find->callback([options, &invocation] {
        invocation.command = [options, &invocation](Store& store) {
            return PrintFound(store, *options, invocation.json);
        };
    });
}

}  // namespace orvo::cli
