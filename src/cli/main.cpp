// orvo: people's addresses and duties, in a terminal or a script.
// SPDX-License-Identifier: MIT

#include <csignal>
#include <exception>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/Commands.h>
#include <cli/LocalDate.h>
#include <cli/Output.h>
#include <host/OpenFolders.h>
#include <host/StoreAdvice.h>
#include <libraries/quire/UserStore.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <platform/text/Charset.h>
#include <platform/text/SystemLocale.h>
#include <platform/time/CTime.h>

namespace orvo::cli {
namespace {

void AddGlobalOptions(CLI::App& app, Invocation& invocation) {
    app.add_option("--store", invocation.store,
                   "The store file (default: orvo/orvo.db in the user's data folder)");
    app.add_option("--locale", invocation.locale,
                   "The locale for this call, such as de-DE or ja-JP");
    app.add_option("--code-page", invocation.codePage,
                   "The code page of text in memory: 65001, 932 or an 8-bit page");
    app.add_option("--now", invocation.now,
                   "The local time that this call takes for the present, such as 2026-12-24T18:00");
    app.add_flag("--show-private", invocation.privates.showsPrivate,
                 "Show private entries whole, whatever the options say; asks for the password that "
                 "guards them");
    app.add_option("--password-file", invocation.privates.passwordFile,
                   "Take the password from the first line of a file, or of standard input (-)");
    app.add_flag("--json", invocation.json, "Print JSON, one object a line");
    app.set_version_flag("--version", "orvo " ORVO_VERSION);
}

void ApplyLocale(const Invocation& invocation) {
    if (invocation.locale.empty() && invocation.codePage == 0) return;
    const std::string tag = invocation.locale.empty() ? SystemLocale::Tag() : invocation.locale;
    if (!SystemLocale::Set(tag, invocation.codePage)) {
        throw CommandError(
            kWrongUse, fmt::format("--locale {} --code-page {}: no such locale or code page", tag,
                                   invocation.codePage));
    }
}

void CheckArguments(int count, char** arguments) {
    for (int i = 1; i < count; ++i) {
        if (!IsValidUtf8(arguments[i])) {
            throw CommandError(kWrongUse, fmt::format("argument {} is not UTF-8 text", i));
        }
    }
}

std::string StorePath(const Invocation& invocation) {
    return invocation.store.empty() ? UserStorePath() : invocation.store;
}

int RunWith(Store& store, const Invocation& invocation) {
    const std::string damage = store.TextsFailure();
    if (!damage.empty()) PrintError(damage);
    const int code = invocation.command(store);
    return code == kDone && !damage.empty() ? kSomeSkipped : code;
}

int RunOnStore(const Invocation& invocation) {
    try {
        PrivateGuard guard(invocation.privates);
        Store store(invocation.store, guard);
        const std::string ownStore = invocation.store.empty() ? UserStorePath() : std::string();
        for (const std::string& line : OpenFolders(ownStore)) PrintWarning(line);
        return RunWith(store, invocation);
    } catch (const CommandError& error) {
        throw CommandError(error.Code(), WithAdvice(error.what(), StorePath(invocation)));
    } catch (const std::exception& error) {
        throw CommandError(kWrongUse, WithAdvice(error.what(), StorePath(invocation)));
    }
}

int Run(int count, char** arguments) {
    CheckArguments(count, arguments);
    CLI::App app("Addresses and to-dos in one store.", "orvo");
    Invocation invocation;
    app.fallthrough();
    app.require_subcommand(1);
    AddGlobalOptions(app, invocation);
    AddExchangeCommands(app, invocation);
    AddFindCommand(app, invocation);
    AddBirthdaysCommand(app, invocation);
    AddAddressesCommands(app, invocation);
    AddCardCommands(app, invocation);
    AddViewCommands(app, invocation);
    AddTodosCommand(app, invocation);
    AddTodoCommands(app, invocation);
    AddTextsCommands(app, invocation);
    AddShowCommand(app, invocation);
    AddRecordCommands(app, invocation);
    AddChangesCommand(app, invocation);
    AddOptionsCommands(app, invocation);
    AddMailCommand(app, invocation);
    AddWhoCommand(app, invocation);
    AddBackupCommands(app, invocation);
    AddRescueCommand(app, invocation);
    app.footer(
        "Exit codes: 0 done; 1 nothing found; 2 wrong use or a file that can't be read;\n"
        "3 done, with some entries skipped, each told on standard error.");
    try {
        app.parse(count, arguments);
    } catch (const CLI::Success& help) {
        return app.exit(help);
    } catch (const CLI::RequiredError& error) {
        const std::vector<std::string> unknown = app.remaining();
        throw CommandError(
            kWrongUse, unknown.empty() ? fmt::format("{} (see orvo --help)", error.what())
                                       : fmt::format("there is no command \"{}\" (see orvo --help)",
                                                     unknown.front()));
    } catch (const CLI::ParseError& error) {
        throw CommandError(kWrongUse, fmt::format("{} (see orvo --help)", error.what()));
    }
    ApplyLocale(invocation);
    if (!invocation.now.empty()) CTime::SetClock(TimeOfText(invocation.now, "--now"));
    OrvoShareMain(OwnModule(), DLL_PROCESS_ATTACH);
    if (invocation.withoutStore) return invocation.withoutStore();
    return RunOnStore(invocation);
}

}  // namespace
}  // namespace orvo::cli

int main(int count, char** arguments) {
    using namespace orvo::cli;
    // A reader that has seen enough, such as `head`, ends the program without a word.
    std::signal(SIGPIPE, SIG_DFL);
    // A limit on the size of files fails the write that meets it, so that the reason can be
    // reported.
    std::signal(SIGXFSZ, SIG_IGN);
    int code = kWrongUse;
    try {
        code = Run(count, arguments);
    } catch (const CommandError& error) {
        PrintWarning(error.what());
        code = error.Code();
    } catch (const std::exception& error) {
        PrintWarning(error.what());
    }
    if (!FlushOutput()) {
        PrintError("orvo: standard output can't take the result");
        code = kWrongUse;
    }
    return code;
}
