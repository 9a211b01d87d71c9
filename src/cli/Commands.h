// The commands of orvo: each adds itself to the command line and then works on the open store.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include <cli/PrivateGuard.h>
#include <cli/Store.h>

namespace CLI {
class App;
}

namespace orvo::cli {

// What the command line asked for.
struct Invocation {
    std::string store;
    std::string locale;
    std::string now;
    unsigned codePage = 0;
    bool json = false;
    PrivateRequest privates;
    std::function<int(Store&)> command;  // returns the exit code
    std::function<int()> withoutStore;   // the same for a command that opens no store
};

void AddExchangeCommands(CLI::App& app, Invocation& invocation);   // import, export
void AddAddressesCommands(CLI::App& app, Invocation& invocation);  // addresses, compare
void AddCardCommands(CLI::App& app, Invocation& invocation);       // card, cards
void AddViewCommands(CLI::App& app, Invocation& invocation);       // lookup, tip, heading, category
void AddBirthdaysCommand(CLI::App& app, Invocation& invocation);   // birthdays
void AddFindCommand(CLI::App& app, Invocation& invocation);        // find
void AddTodosCommand(CLI::App& app, Invocation& invocation);       // todos
void AddTodoCommands(CLI::App& app, Invocation& invocation);       // todo
void AddTextsCommands(CLI::App& app, Invocation& invocation);      // categories, labels
void AddShowCommand(CLI::App& app, Invocation& invocation);        // show
void AddRecordCommands(CLI::App& app, Invocation& invocation);     // add, edit, delete
void AddChangesCommand(CLI::App& app, Invocation& invocation);     // changes
void AddOptionsCommands(CLI::App& app, Invocation& invocation);    // options
void AddMailCommand(CLI::App& app, Invocation& invocation);        // mail
void AddWhoCommand(CLI::App& app, Invocation& invocation);         // who
void AddBackupCommands(CLI::App& app, Invocation& invocation);     // backup, restore
void AddRescueCommand(CLI::App& app, Invocation& invocation);      // rescue

}  // namespace orvo::cli
