// rescue.
// SPDX-License-Identifier: MIT
#include <memory>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/Commands.h>
#include <cli/Output.h>
#include <libraries/quire/StoreRescue.h>

namespace orvo::cli {
namespace {

int Rescue(const std::string& damaged, const std::string& fresh, bool json) {
    RescueReport report;
    std::string error;
    if (!RescueStore(damaged, fresh, report, error)) throw CommandError(kWrongUse, error);
    if (json) {
        PrintJson({{"addresses", report.addresses},
                   {"todos", report.toDos},
                   {"lost", report.lost.size()}});
    } else {
        PrintLine(fmt::format("rescued {} addresses, {} to-dos into {}", report.addresses,
                              report.toDos, fresh));
    }
    for (const std::string& line : report.lost) PrintError(fmt::format("{}: {}", damaged, line));
    return report.lost.empty() ? kDone : kSomeSkipped;
}

}  // namespace

void AddRescueCommand(CLI::App& app, Invocation& invocation) {
    auto damaged = std::make_shared<std::string>();
    auto fresh = std::make_shared<std::string>();
    CLI::App* rescue = app.add_subcommand(
        "rescue", "Copy all that can still be read of a damaged store into a new one");
    rescue->add_option("DAMAGED", *damaged, "The damaged store, which stays as it is")->required();
    rescue->add_option("NEW", *fresh, "The new store, which must not be there yet")->required();
    rescue->callback([damaged, fresh, &invocation] {
        invocation.withoutStore = [damaged, fresh, &invocation] {
            return Rescue(*damaged, *fresh, invocation.json);
        };
    });
}

}  // namespace orvo::cli
