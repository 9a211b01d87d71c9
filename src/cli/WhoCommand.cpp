// who: the programs that have data sets open.
// SPDX-License-Identifier: MIT
#include <vector>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/AddressFields.h>
#include <cli/Commands.h>
#include <cli/Output.h>
#include <orvoshare/shared/DalAccessController.h>

namespace orvo::cli {
namespace {

std::vector<CAccessInfo> Accessors() {
    CDalAccessController table;
    if (table.Attach() == 0) return {};
    unsigned long count = 0;
    CAccessInfo* rows = nullptr;
    table.GetAccessInfoArray(&count, &rows);
    return {rows, rows + count};
}

int PrintAccessors(bool json) {
    const std::vector<CAccessInfo> accessors = Accessors();
    TextTable table({"User", "Creator", "Owner"});
    for (const CAccessInfo& row : accessors) {
        const std::string user = ToUtf8(CString(row.user));
        const std::string owner = ToUtf8(CString(row.owner));
        if (json) {
            PrintJson({{"user", user}, {"creator", row.creator}, {"owner", owner}});
        } else {
            table.Add({user, fmt::to_string(row.creator), owner});
        }
    }
    if (accessors.empty()) {
        throw CommandError(kNothingFound, "no program has a data set open");
    }
    if (!json) table.Print();
    return kDone;
}

}  // namespace

void AddWhoCommand(CLI::App& app, Invocation& invocation) {
    app.add_subcommand("who", "List the programs that have data sets open")
        ->callback([&invocation] {
            invocation.command = [&invocation](Store&) { return PrintAccessors(invocation.json); };
        });
}

}  // namespace orvo::cli
