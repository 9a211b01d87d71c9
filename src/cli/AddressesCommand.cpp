// addresses and compare.
// SPDX-License-Identifier: MIT
#include <memory>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/AddressFields.h>
#include <cli/Commands.h>
#include <cli/Output.h>
#include <contracts/ResourceScope.h>
#include <orvoshare/addresslist/AddrCompare.h>
#include <orvoshare/addresslist/AddressOrder.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>

namespace orvo::cli {
namespace {

struct ListOptions {
    std::string by = "name";
    std::string category;
    bool hidePrivate = false;
    bool maskPrivate = false;

    long ListBy() const { return by == "company" ? kListByCompany : kListByName; }
};

struct AddressListing {
    AddressRecords records;
    ExitCode code = kDone;  // kSomeSkipped where damaged records were told and left out
};

// The records that a list of these options shows, in its order.
AddressListing ListAddresses(Store& store, const ListOptions& options) {
    CAddressTable& table = store.Addresses();
    const int shown =
        options.category.empty() ? kAllCategories : CategoryIndex(table, options.category);

    constexpr long kEnd = static_cast<long>(StoreStatus::End);
    AddressListing listing;
    CAddressIterator iterator(table);
    auto record = std::make_unique<CAddressRecord>(table, 1);
    long status = iterator.FindFirst(*record, 1);
    for (; status != kEnd; status = iterator.FindNext(*record, 1)) {
        if (iterator.IsAtDamage()) {
            PrintError(table.LastError());
            listing.code = kSomeSkipped;
            continue;
        }
        store.Check(status);
        int category = kNoCategory;
        record->GetCategoryId(category);
        if (record->IsArchived() || (shown != kAllCategories && category != shown) ||
            (options.hidePrivate && record->IsPrivate())) {
            continue;
        }
        listing.records.push_back(std::move(record));
        record = std::make_unique<CAddressRecord>(table, 1);
    }
    SortAddresses(listing.records, options.ListBy());
    return listing;
}

std::string Utf8Of(const CAddressRecord& record, AddressField field) {
    return std::string(record.Utf8(field));
}

Json RowAsJson(Store& store, std::size_t row, CAddressRecord& record, bool masked) {
    Json json{{"row", row}, {"id", record.GetId()}};
    if (masked) {
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
    json["category"] = CategoryName(store.Addresses(), record);
    json["private"] = record.IsPrivate() != 0;
    return json;
}

std::string ModuleText(unsigned number) {
    const CDllResourceHandler resources(OrvoShareRecord());
    CString text;
    text.LoadString(number);
    return ToUtf8(text);
}

// The first category of a new store goes by the name of the user's language until it is renamed.
std::string ShownCategory(CBaseTable& table, const CBaseRecord& record) {
    int index = kNoCategory;
    record.GetCategoryId(index);
    std::string name = CategoryName(table, record);
    const bool isUnnamed = index == kNoCategory && name == kNoCategoryName;
    return isUnnamed ? ModuleText(kStringUncategorized) : name;
}

std::vector<std::string> RowAsCells(Store& store, std::size_t row, CAddressRecord& record,
                                    bool masked) {
    const std::string number = fmt::format("{}", row);
    const std::string id = fmt::format("{}", record.GetId());
    if (masked) return {number, id, ModuleText(kStringPrivate), "", "", ""};
    long slot = 1;
    record.GetDisplayPhone(slot);
    return {number,
            id,
            FormattedName(record),
            Utf8Of(record, AddressField::Company),
            Utf8Of(record, PhoneField(slot)),
            ShownCategory(store.Addresses(), record)};
}

int PrintAddresses(Store& store, const ListOptions& options, bool json) {
    const auto [records, code] = ListAddresses(store, options);
    TextTable table({"Row", "ID", "Name", "Company", "Phone", "Category"});
    for (std::size_t row = 0; row < records.size(); ++row) {
        CAddressRecord& record = *records[row];
        const bool masked = options.maskPrivate && record.IsPrivate();
        if (json) {
            PrintJson(RowAsJson(store, row, record, masked));
        } else {
            table.Add(RowAsCells(store, row, record, masked));
        }
    }
    if (records.empty() && code == kDone)
        throw CommandError(kNothingFound, "there are no addresses to list");
    if (!json) table.Print();
    return code;
}

struct CompareOptions {
    ListOptions list;
    std::size_t row1 = 0;
    std::size_t row2 = 0;
    bool japanese = false;
    bool english = false;
};

int PrintComparison(Store& store, const CompareOptions& options, bool json) {
    const AddressListing listing = ListAddresses(store, options.list);
    const AddressRecords& records = listing.records;
    const auto recordAt = [&](std::size_t row) {
        if (row >= records.size()) {
            throw CommandError(
                kNothingFound,
                fmt::format("there is no row {}: the list has {} rows", row, records.size()));
        }
        return reinterpret_cast<long>(records[row].get());
    };
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
    return listing.code;
}

void AddListOptions(CLI::App& command, ListOptions& options) {
    command.add_option("--by", options.by, "The order: name or company")
        ->check(CLI::IsMember({"name", "company"}));
}

}  // namespace

void AddAddressesCommands(CLI::App& app, Invocation& invocation) {
    auto options = std::make_shared<ListOptions>();
    CLI::App* addresses = app.add_subcommand("addresses", "List the addresses in order");
    AddListOptions(*addresses, *options);
    addresses->add_option("--category", options->category, "Only the addresses of this category");
    addresses->add_flag("--hide-private", options->hidePrivate, "Leave private addresses out");
    addresses->add_flag("--mask-private", options->maskPrivate,
                        "Keep the rows of private addresses, without their content");
    addresses->callback([options, &invocation] {
        invocation.command = [options, &invocation](Store& store) {
            return PrintAddresses(store, *options, invocation.json);
        };
    });

    auto comparison = std::make_shared<CompareOptions>();
    CLI::App* compare =
        app.add_subcommand("compare", "Tell which of two rows of the list goes first: -1, 0 or 1");
    compare->add_option("ROW1", comparison->row1, "A row number of `addresses`")->required();
    compare->add_option("ROW2", comparison->row2, "Another one")->required();
    AddListOptions(*compare, comparison->list);
    CLI::Option* japanese =
        compare->add_flag("--japanese", comparison->japanese, "By readings, as on code page 932");
    compare->add_flag("--english", comparison->english, "Without readings")->excludes(japanese);
    compare->callback([comparison, &invocation] {
        invocation.command = [comparison, &invocation](Store& store) {
            return PrintComparison(store, *comparison, invocation.json);
        };
    });
}

}  // namespace orvo::cli
