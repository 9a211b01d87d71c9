// import and export.
// SPDX-License-Identifier: MIT
#include <memory>
#include <vector>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/AddressFields.h>
#include <cli/Commands.h>
#include <cli/Output.h>
#include <exchange/files/ExportFile.h>
#include <exchange/files/FilesToImport.h>
#include <exchange/files/ImportFile.h>

namespace orvo::cli {
namespace {

struct ImportOrder {
    std::vector<std::string> paths;
    bool skipsUnreadable = false;
    bool asNew = false;
};

int Import(Store& store, const ImportOrder& order, bool json) {
    const FilesToImport found = FindFilesToImport(order.paths);
    for (const std::string& line : found.unreadable) PrintWarning(line);
    const std::size_t unreadable = found.unreadable.size();
    if (unreadable != 0 && (!order.skipsUnreadable || found.files.empty())) return kWrongUse;
    Transaction transaction(store);
    ImportReport total;
    std::vector<std::string> told;
    for (const std::string& file : found.files) {
        const ImportReport report =
            ImportFile(file, store.Addresses(), store.ToDos(), nullptr,
                       order.asNew ? KnownEntry::AddAgain : KnownEntry::Update);
        total.addresses += report.addresses;
        total.toDos += report.toDos;
        total.updated += report.updated;
        total.unchanged += report.unchanged;
        for (const SkippedEntry& entry : report.skipped) {
            told.push_back(fmt::format("{}:{}: {}", file, entry.line, entry.reason));
        }
    }
    transaction.Commit();

    if (json) {
        PrintJson({{"addresses", total.addresses},
                   {"todos", total.toDos},
                   {"updated", total.updated},
                   {"unchanged", total.unchanged},
                   {"skipped", told.size()},
                   {"unreadable", unreadable}});
    } else {
        PrintLine(fmt::format("imported {}, updated {}, unchanged {}, skipped {}",
                              total.addresses + total.toDos, total.updated, total.unchanged,
                              told.size()));
    }
    for (const std::string& line : told) PrintError(line);
    return told.empty() && unreadable == 0 ? kDone : kSomeSkipped;
}

// The table whose records a file of that name holds.
CBaseTable& TableOf(Store& store, const std::string& file) {
    if (IsCardFile(file)) return store.Addresses();
    return store.ToDos();
}

int Export(Store& store, const std::string& file, const std::string& category, bool json) {
    const int index =
        category.empty() ? kAllCategories : CategoryIndex(TableOf(store, file), category);
    const Disclosure disclosure = store.Guard().Disclosed();
    std::size_t untold = 0;
    const ExportReport report =
        ExportFile(file, store.Addresses(), store.ToDos(), [&](const CBaseRecord& record) {
            int own = kNoCategory;
            record.GetCategoryId(own);
            if (index != kAllCategories && own != index) return false;
            if (disclosure.Of(WayOut::Export, record) == Told::Whole) return true;
            ++untold;
            return false;
        });
    const std::size_t leftOut = report.leftOut.size() + untold;
    if (json) {
        PrintJson({{"exported", report.written}, {"leftOut", leftOut}});
    } else {
        PrintLine(
            fmt::format("exported {} records to {}, {} left out", report.written, file, leftOut));
    }
    for (const std::string& line : report.leftOut) PrintError(line);
    if (untold != 0) PrintWarning(LeftOutLine(untold));
    if (leftOut != 0) return kSomeSkipped;
    return report.written == 0 ? kNothingFound : kDone;
}

}  // namespace

void AddExchangeCommands(CLI::App& app, Invocation& invocation) {
    auto order = std::make_shared<ImportOrder>();
    CLI::App* importing = app.add_subcommand(
        "import", "Take in vcf, vcs and ics files: all of them, or none where one can't be read");
    importing
        ->add_option("FILE", order->paths,
                     "Card and calendar files, and folders with such files in them and below")
        ->required();
    importing->add_flag("--skip-unreadable", order->skipsUnreadable,
                        "Take the others where files can't be read or hold no card or calendar");
    importing->add_flag("--as-new", order->asNew,
                        "Add all entries, also those that the store holds already");
    importing->callback([order, &invocation] {
        invocation.command = [order, &invocation](Store& store) {
            return Import(store, *order, invocation.json);
        };
    });

    auto file = std::make_shared<std::string>();
    auto category = std::make_shared<std::string>();
    CLI::App* exporting = app.add_subcommand(
        "export", "Write the addresses to a .vcf file, or the to-dos to an .ics or .vcs file");
    exporting->add_option("FILE", *file, "The file to write")->required();
    exporting->add_option("--category", *category, "Only the records of this category");
    exporting->callback([file, category, &invocation] {
        invocation.command = [file, category, &invocation](Store& store) {
            return Export(store, *file, *category, invocation.json);
        };
    });
}

}  // namespace orvo::cli
