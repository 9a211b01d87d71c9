// add, edit and delete.
// SPDX-License-Identifier: MIT
#include <map>
#include <memory>
#include <optional>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/AddressFields.h>
#include <cli/Commands.h>
#include <cli/Output.h>

namespace orvo::cli {
namespace {

// The values of the options of add and edit; a field without a value stays as it is.
struct Changes {
    std::map<AddressField, std::string> texts;
    std::map<long, std::string> labels;  // by phone slot: a label's text or number
    std::optional<long> displayPhone;
    std::optional<std::string> note;
    std::optional<std::string> category;
    std::optional<bool> isPrivate;
    std::optional<bool> isArchived;
};

long LabelId(const CAddressTable& table, const std::string& label) {
    for (long id = 0; id < table.GetPhoneLabelCount(); ++id) {
        if (ToUtf8(table.GetPhoneLabel(id)) == label || table.StoredPhoneLabel(id) == label ||
            fmt::format("{}", id) == label) {
            return id;
        }
    }
    throw CommandError(kWrongUse,
                       fmt::format("there is no phone label \"{}\": see `orvo labels`", label));
}

void Apply(Store& store, CAddressRecord& record, const Changes& changes) {
    for (const auto& [field, text] : changes.texts) store.Check(record.SetUtf8(field, text));
    for (const auto& [slot, label] : changes.labels) {
        store.Check(record.SetPhoneLabelID(slot, LabelId(store.Addresses(), label)));
    }
    if (changes.displayPhone) store.Check(record.SetDisplayPhone(*changes.displayPhone));
    if (changes.note) store.Check(record.SetNoteUtf8(*changes.note));
    if (changes.category) {
        store.Check(record.SetCategoryId(
            changes.category->empty() ? kNoCategory
                                      : CategoryIndexOrNew(store.Addresses(), *changes.category)));
    }
    if (changes.isPrivate) store.Check(record.SetPrivate(*changes.isPrivate));
    if (changes.isArchived) store.Check(record.SetArchived(*changes.isArchived));
}

int Tell(const char* verb, std::int64_t id, bool json) {
    if (json) {
        PrintJson({{"id", id}});
    } else {
        PrintLine(fmt::format("{} {}", verb, id));
    }
    return kDone;
}

int Add(Store& store, const Changes& changes, bool json) {
    Transaction transaction(store);
    CAddressRecord record(store.Addresses(), 1);
    Apply(store, record, changes);
    store.Check(store.Addresses().Add(record));
    transaction.Commit();
    return Tell("added", record.GetId(), json);
}

int Edit(Store& store, std::int64_t id, const Changes& changes, bool json) {
    Transaction transaction(store);
    const auto record = FindAddress(store, id);
    store.Guard().CheckChange(*record, fmt::format("address {}", id));
    Apply(store, *record, changes);
    transaction.Commit();
    return Tell("edited", id, json);
}

int Delete(Store& store, std::int64_t id, bool json) {
    const WriteClaim claim(store);
    const auto record = FindAddress(store, id);
    store.Guard().CheckChange(*record, fmt::format("address {}", id));
    store.Check(store.Addresses().Delete(*record));
    return Tell("deleted", id, json);
}

void AddTextOption(CLI::App& command, Changes& changes, AddressField field,
                   const std::string& option, const std::string& title) {
    command.add_option_function<std::string>(
        option, [&changes, field](const std::string& text) { changes.texts[field] = text; }, title);
}

void AddYesNoOption(CLI::App& command, const char* option, std::optional<bool>& value,
                    const char* description) {
    command
        .add_option_function<std::string>(
            option, [&value](const std::string& text) { value = text == "yes"; }, description)
        ->check(CLI::IsMember({"yes", "no"}));
}

void AddFieldOptions(CLI::App& command, Changes& changes) {
    for (const FieldName& field : kFieldNames) {
        AddTextOption(command, changes, field.field, field.option, field.title);
    }
    for (long slot = 1; slot <= kPhoneSlots; ++slot) {
        AddTextOption(command, changes, PhoneField(slot), fmt::format("--phone{}", slot),
                      "Number, mail or web address");
        command.add_option_function<std::string>(
            fmt::format("--label{}", slot),
            [&changes, slot](const std::string& label) { changes.labels[slot] = label; },
            "Its label, by text or number");
    }
    command
        .add_option("--display-phone", changes.displayPhone, "The phone that lists show, 1 to 5")
        ->check(CLI::Range(1, kPhoneSlots));
    for (int number = 1; number <= kCustomFields; ++number) {
        AddTextOption(command, changes, CustomField(number), fmt::format("--custom{}", number),
                      "Custom field");
    }
    command.add_option("--note", changes.note, "Note");
    command.add_option("--category", changes.category, "Category; a new name adds one");
    AddYesNoOption(command, "--private", changes.isPrivate, "Private: yes or no");
    AddYesNoOption(command, "--archived", changes.isArchived, "Archived: yes or no");
}

}  // namespace

void AddRecordCommands(CLI::App& app, Invocation& invocation) {
    auto id = std::make_shared<std::int64_t>(0);
    auto changes = std::make_shared<Changes>();
    const auto addIdCommand = [&](const char* name, const char* description) {
        CLI::App* command = app.add_subcommand(name, description);
        command->add_option("ID", *id, "The id that `addresses` shows")->required();
        return command;
    };

    CLI::App* add = app.add_subcommand("add", "Add an address");
    AddFieldOptions(*add, *changes);
    add->callback([changes, &invocation] {
        invocation.command = [changes, &invocation](Store& store) {
            return Add(store, *changes, invocation.json);
        };
    });
    CLI::App* edit =
        addIdCommand("edit", "Change fields of one address; an empty text clears a field");
    AddFieldOptions(*edit, *changes);
    edit->callback([id, changes, &invocation] {
        invocation.command = [id, changes, &invocation](Store& store) {
            return Edit(store, *id, *changes, invocation.json);
        };
    });
    addIdCommand("delete", "Delete one address")->callback([id, &invocation] {
        invocation.command = [id, &invocation](Store& store) {
            return Delete(store, *id, invocation.json);
        };
    });
}

}  // namespace orvo::cli
