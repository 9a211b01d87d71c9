// backup, restore.
// SPDX-License-Identifier: MIT
#include <memory>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/Commands.h>
#include <cli/Output.h>
#include <host/StoreAdvice.h>
#include <libraries/quire/StoreBackup.h>
#include <libraries/quire/UserStore.h>

namespace orvo::cli {
namespace {

std::string StoreOf(const Invocation& invocation) {
    std::string error;
    if (!invocation.store.empty()) return invocation.store;
    if (!MakeUserStoreFolder(error)) throw CommandError(kWrongUse, error);
    return UserStorePath();
}

// The command as a shell takes it.
std::string RestoreLine(const Invocation& invocation, const std::string& backup) {
    const auto quoted = [](const std::string& word) {
        std::string text = "'";
        for (const char c : word) text += c == '\'' ? "'\\''" : std::string(1, c);
        return text + "'";
    };
    const std::string store =
        invocation.store.empty() ? "" : "--store " + quoted(invocation.store) + " ";
    return "orvo " + store + "restore " + quoted(backup);
}

int BackUp(const Invocation& invocation, const std::string& target, bool replaces) {
    const std::string store = StoreOf(invocation);
    StoreCounts counts;
    std::string error;
    if (!BackUpStore(store, target, replaces, counts, error)) {
        throw CommandError(kWrongUse, WithAdvice(error, store));
    }
    if (invocation.json) {
        PrintJson({{"addresses", counts.addresses}, {"todos", counts.toDos}, {"file", target}});
    } else {
        PrintLine(fmt::format("backed up {} addresses, {} to-dos to {}", counts.addresses,
                              counts.toDos, target));
    }
    return kDone;
}

int Restore(const Invocation& invocation, const std::string& backup) {
    const std::string store = StoreOf(invocation);
    const WriteClaim claim(store);
    RestoreReport report;
    std::string error;
    if (!RestoreStore(store, backup, report, error))
        throw CommandError(kWrongUse, WithAdvice(error, store));
    if (invocation.json) {
        PrintJson({{"addresses", report.counts.addresses},
                   {"todos", report.counts.toDos},
                   {"kept", report.kept}});
        return kDone;
    }
    PrintLine(fmt::format("restored {} addresses, {} to-dos from {}", report.counts.addresses,
                          report.counts.toDos, backup));
    if (report.isNewFile) {
        PrintLine(fmt::format("the damaged store is kept as {}", report.kept));
    } else if (!report.kept.empty()) {
        PrintLine("to take it back: " + RestoreLine(invocation, report.kept));
    }
    return kDone;
}

}  // namespace

void AddBackupCommands(CLI::App& app, Invocation& invocation) {
    auto target = std::make_shared<std::string>();
    auto replaces = std::make_shared<bool>(false);
    CLI::App* backup = app.add_subcommand(
        "backup", "Copy the whole store into a file, while other programs may go on using it");
    backup->add_option("FILE", *target, "The backup, which must not be there yet")->required();
    backup->add_flag("--replace", *replaces,
                     "Replace an earlier backup once the new one is written and checked");
    backup->callback([target, replaces, &invocation] {
        invocation.withoutStore = [target, replaces, &invocation] {
            return BackUp(invocation, *target, *replaces);
        };
    });

    auto source = std::make_shared<std::string>();
    CLI::App* restore = app.add_subcommand(
        "restore", "Make the store what a backup holds, and keep it as it was beside it");
    restore->add_option("FILE", *source, "The backup, which stays as it is")->required();
    restore->callback([source, &invocation] {
        invocation.withoutStore = [source, &invocation] { return Restore(invocation, *source); };
    });
}

}  // namespace orvo::cli
