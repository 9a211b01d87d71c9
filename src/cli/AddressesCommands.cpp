// addresses and compare.
// SPDX-License-Identifier: MIT
#include <array>
#include <memory>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/AddressFields.h>
#include <cli/AddressView.h>
#include <cli/Commands.h>
#include <cli/ListColumns.h>
#include <cli/Output.h>
#include <host/ViewSections.h>
#include <orvoshare/addressviews/AddrCompare.h>
#include <orvoshare/resources/StringTable.h>

namespace orvo::cli {
namespace {

struct AddressesOptions {
    ListOptions list;
    std::string columns;
    std::string view = "report";

    bool ShowsIcons() const { return view == "icons"; }
};

std::vector<std::string> Headings(CDetailViewAddrList& list, const AddressesOptions& options) {
    return options.ShowsIcons() ? std::vector<std::string>{"Row", "ID", "Icon", "Label"}
                                : TableHeadings(list);
}

// What the pictures of the icon modes show, by their index.
constexpr std::array<const char*, 3> kIconNames{"person", "building", "masked"};

const char* IconName(CDetailViewAddrList& list, int row) {
    const auto image = static_cast<std::size_t>(list.GetItemImage(row));
    return image < kIconNames.size() ? kIconNames[image] : "";
}

std::string Utf8Of(const CAddressRecord& record, AddressField field) {
    return std::string(record.Utf8(field));
}

Json CellsAsJson(CDetailViewAddrList& list, CAddressRecord& record) {
    Json cells = Json::object();
    for (const int id : list.GetShownColumns()) {
        const AddressCell cell = list.GetCell(&record, id);
        const bool isPicture = ColumnOf(list, id).bPictureCell != 0;
        cells[fmt::format("{}", id)] = isPicture ? Json(cell.picture != nullptr)  //
                                                 : Json(ToUtf8(cell.text));
    }
    return cells;
}

Json RowAsJson(AddressView& view, const AddressesOptions& options, int row) {
    CAddressRecord& record = view.RecordAt(row);
    Json json{{"row", row}, {"id", record.GetId()}};
    if (view.List().IsRowMasked(view.List().DV_GetItemData(row))) {
        json["private"] = true;
        json["masked"] = true;
        return json;
    }
    json["name"] = Utf8Of(record, AddressField::Name);
    json["first"] = Utf8Of(record, AddressField::First);
    json["company"] = Utf8Of(record, AddressField::Company);
    json["nameYomi"] = Utf8Of(record, AddressField::NameYomi);
    json["firstYomi"] = Utf8Of(record, AddressField::FirstYomi);
    json["companyYomi"] = Utf8Of(record, AddressField::CompanyYomi);
    json["formatted"] = FormattedName(record);
    json["category"] = StoredCategoryName(record.GetTable(), record);
    json["private"] = record.IsPrivate() != 0;
    if (options.ShowsIcons()) {
        json["icon"] = IconName(view.List(), row);
        json["label"] = ToUtf8(view.List().GetItemText(row, 0));
    } else {
        json["cells"] = CellsAsJson(view.List(), record);
    }
    return json;
}

std::vector<std::string> RowAsCells(AddressView& view, const AddressesOptions& options, int row) {
    CDetailViewAddrList& list = view.List();
    CAddressRecord& record = view.RecordAt(row);
    std::vector<std::string> cells{fmt::format("{}", row), fmt::format("{}", record.GetId())};
    if (options.ShowsIcons()) {
        cells.emplace_back(IconName(list, row));
        cells.push_back(ToUtf8(list.GetItemText(row, 0)));
        return cells;
    }
    const bool isMasked = list.IsRowMasked(list.DV_GetItemData(row));
    for (const int id : list.GetShownColumns()) {
        if (isMasked) {
            cells.push_back(cells.size() == 2 ? ModuleText(kStringPrivate) : std::string());
            continue;
        }
        const AddressCell cell = list.GetCell(&record, id);
        cells.push_back(cell.picture != nullptr ? kPictureSign : ToUtf8(cell.text));
    }
    return cells;
}

int PrintAddresses(Store& store, const AddressesOptions& options, bool json) {
    AddressView view(store, options.list);
    CDetailViewAddrList& list = view.List();
    SetUpHeading(list, kListSection, options.columns);
    list.SetViewMode(options.ShowsIcons() ? kLargeIconView : kReportView);
    TextTable table(Headings(list, options));
    for (int row = 0; row < list.DV_GetItemCount(); ++row) {
        if (json) {
            PrintJson(RowAsJson(view, options, row));
        } else {
            table.Add(RowAsCells(view, options, row));
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
