// addresses and compare.
// SPDX-License-Identifier: MIT
#include <memory>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/Commands.h>
#include <cli/ListColumns.h>
#include <cli/ListedAddresses.h>
#include <cli/Output.h>
#include <host/ViewSections.h>
#include <orvoshare/addressviews/AddrCompare.h>

namespace orvo::cli {
namespace {

struct AddressesOptions {
    ListOptions list;
    std::string columns;
    std::string view = "report";

    bool ShowsIcons() const { return view == "icons"; }
};

int PrintAddresses(Store& store, const AddressesOptions& options, bool json) {
    AddressView view(store, options.list);
    CDetailViewAddrList& list = view.List();
    SetUpHeading(list, kListSection, options.columns);
    list.SetViewMode(options.ShowsIcons() ? kLargeIconView : kReportView);
    TextTable table(AddressHeadings(list, options.ShowsIcons()));
    for (int row = 0; row < list.DV_GetItemCount(); ++row) {
        if (json) {
            PrintJson(AddressAsJson(view, options.ShowsIcons(), row));
        } else {
            table.Add(AddressAsCells(view, options.ShowsIcons(), row));
        }
    }
    if (list.DV_GetItemCount() == 0 && view.Code() == kDone)
        throw CommandError(kNothingFound, "there are no addresses to list");
    if (!json) table.Print();
    return view.Code();
}

struct CompareOptions {
    ListOptions list;
    int row1 = 0;
    int row2 = 0;
    bool japanese = false;
    bool english = false;
};

int PrintComparison(Store& store, const CompareOptions& options, bool json) {
    AddressView view(store, options.list);
    const auto recordAt = [&](int row) { return reinterpret_cast<long>(&view.RecordAt(row)); };
    const auto compare = options.japanese  ? AddrCompareFuncJapanese
                         : options.english ? AddrCompareFuncEnglish
                                           : AddrCompareFunc;
    const int result =
        compare(recordAt(options.row1), recordAt(options.row2), options.list.ListBy());
    if (json) {
        PrintJson({{"result", result}});
    } else {
        PrintLine(fmt::format("{}", result));
    }
    return view.Code();
}

void AddAddresses(CLI::App& app, Invocation& invocation) {
    auto options = std::make_shared<AddressesOptions>();
    CLI::App* addresses = app.add_subcommand("addresses", "List the addresses in order");
    AddListOptions(*addresses, options->list);
    addresses->add_option("--columns", options->columns,
                          "The columns, from now on: default, all, or ids parted by commas, such "
                          "as 0,2,7 (an unknown id has all of them listed)");
    addresses->add_option("--view", options->view, "How rows are shown: report or icons")
        ->check(CLI::IsMember({"report", "icons"}));
    addresses->callback([options, &invocation] {
        invocation.command = [options, &invocation](Store& store) {
            return PrintAddresses(store, *options, invocation.json);
        };
    });
}

void AddCompare(CLI::App& app, Invocation& invocation) {
    auto options = std::make_shared<CompareOptions>();
    CLI::App* compare =
        app.add_subcommand("compare", "Tell which of two rows of the list goes first: -1, 0 or 1");
    compare->add_option("ROW1", options->row1, "A row number of `addresses`")->required();
    compare->add_option("ROW2", options->row2, "Another one")->required();
    AddOrderOption(*compare, options->list);
    CLI::Option* japanese =
        compare->add_flag("--japanese", options->japanese, "By readings, as on code page 932");
    compare->add_flag("--english", options->english, "Without readings")->excludes(japanese);
    compare->callback([options, &invocation] {
        invocation.command = [options, &invocation](Store& store) {
            return PrintComparison(store, *options, invocation.json);
        };
    });
}

}  // namespace

void AddAddressesCommands(CLI::App& app, Invocation& invocation) {
    AddAddresses(app, invocation);
    AddCompare(app, invocation);
}

}  // namespace orvo::cli
