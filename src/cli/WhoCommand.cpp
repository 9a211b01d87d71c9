// who: the programs that have data sets open.
// SPDX-License-Identifier: MIT
#include <vector>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/AddressFields.h>
#include <cli/Commands.h>
#include <cli/Output.h>
#include <orvoshare/shared/DataSetClaim.h>

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

// No path is cut off, so that it can be copied.
void PrintAccessor(const std::string& program, const std::string& dataSet) {
    PrintLine(PaddedCell(program, sizeof(CAccessInfo::owner) + 1) + dataSet);
}

int PrintAccessors(bool json) {
    const std::vector<CAccessInfo> accessors = Accessors();
    if (accessors.empty()) {
        throw CommandError(kNothingFound, "no program has a data set open");
    }
    if (!json) PrintAccessor("Program", "Data set");
    for (const CAccessInfo& row : accessors) {
        const std::string user = ToUtf8(CString(row.user));
        const std::string owner = ToUtf8(CString(row.owner));
        const std::string store = row.creator == kStoreCreator ? ClaimedStore(user) : "";
        if (json) {
            Json line{{"user", user}, {"creator", row.creator}, {"owner", owner}};
            if (!store.empty()) line["store"] = store;
            PrintJson(line);
        } else {
            PrintAccessor(owner, store.empty() ? fmt::format("{} ({})", user, row.creator) : store);
        }
    }
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
