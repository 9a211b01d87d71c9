// categories and labels.
// SPDX-License-Identifier: MIT
#include <charconv>
#include <memory>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/AddressFields.h>
#include <cli/Commands.h>
#include <cli/Output.h>
#include <platform/text/SystemText.h>

namespace orvo::cli {
namespace {

void PrintCategories(CBaseTable& table, const char* key, const char* title, bool json) {
    CCategoryMgr& manager = *table.GetCategoryManager();
    if (!json) PrintLine(fmt::format("{}:", title));
    CCategory* category = nullptr;
    for (manager.FindFirst(category); category != nullptr; manager.FindNext(category)) {
        const int index = category->GetIndex();
        if (json) {
            PrintJson({{"table", key}, {"index", index}, {"name", category->Utf8()}});
        } else {
            PrintLine(fmt::format("{:4}  {}", index, category->ShownUtf8()));
        }
    }
}

int PrintAllCategories(Store& store, bool json) {
    PrintCategories(store.Addresses(), "addresses", "Addresses", json);
    PrintCategories(store.ToDos(), "todos", "To-dos", json);
    return kDone;
}

void PrintLabel(const char* kind, long number, const CString& shown, const std::string& stored,
                bool json) {
    if (json) {
        PrintJson({{"kind", kind}, {"number", number}, {"label", stored}});
    } else {
        PrintLine(fmt::format("{:<6}  {:3}  {}", kind, number, ToUtf8(shown)));
    }
}

int PrintLabels(Store& store, bool json) {
    const CAddressTable& table = store.Addresses();
    for (long id = 0; id < table.GetPhoneLabelCount(); ++id) {
        PrintLabel("phone", id, table.GetPhoneLabel(id), table.StoredPhoneLabel(id), json);
    }
    for (int number = 1; number <= kCustomFields; ++number) {
        PrintLabel("custom", number, table.GetCustomLabel(number), table.StoredCustomLabel(number),
                   json);
    }
    return kDone;
}

void SetLabel(Store& store, const std::vector<std::string>& arguments) {
    Transaction transaction(store);
    const std::string& kind = arguments[0];
    const std::string& digits = arguments[1];
    int number = -1;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool isNumber = error == std::errc() && end == digits.data() + digits.size();
    const bool isPhone = kind == "phone";
    const int first = isPhone ? 0 : 1;
    const int last = isPhone ? store.Addresses().GetPhoneLabelCount() : kCustomFields;
    if ((!isPhone && kind != "custom") || !isNumber || number < first || number > last) {
        throw CommandError(
            kWrongUse,
            fmt::format("labels --set {} {}: give phone 0 to {}, or custom 1 to {}", kind, digits,
                        store.Addresses().GetPhoneLabelCount(), kCustomFields));
    }
    const CString label = SystemText(arguments[2]);
    store.Check(isPhone ? store.Addresses().SetPhoneLabel(number, label)
                        : store.Addresses().SetCustomLabel(number, label));
    transaction.Commit();
}

}  // namespace

void AddTextsCommands(CLI::App& app, Invocation& invocation) {
    CLI::App* categories =
        app.add_subcommand("categories", "List the categories of addresses and to-dos");
    categories->callback([&invocation] {
        invocation.command = [&invocation](Store& store) {
            return PrintAllCategories(store, invocation.json);
        };
    });

    auto arguments = std::make_shared<std::vector<std::string>>();
    CLI::App* labels =
        app.add_subcommand("labels", "List or change the labels of phones and custom fields");
    labels
        ->add_option("--set", *arguments,
                     "phone|custom NUMBER TEXT: give a label another text; "
                     "the next free phone number adds a label")
        ->expected(3);
    labels->callback([arguments, &invocation] {
        invocation.command = [arguments, &invocation](Store& store) -> int {
            if (arguments->empty()) return PrintLabels(store, invocation.json);
            SetLabel(store, *arguments);
            return kDone;
        };
    });
}

}  // namespace orvo::cli
