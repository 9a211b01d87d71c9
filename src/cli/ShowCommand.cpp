// show.
// SPDX-License-Identifier: MIT
#include <memory>
#include <optional>
#include <vector>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/AddressFields.h>
#include <cli/Commands.h>
#include <cli/GroupView.h>
#include <cli/IdentityView.h>
#include <cli/ListedTodos.h>
#include <cli/Output.h>
#include <cli/PersonView.h>
#include <cli/ToDoDetailsView.h>
#include <contracts/Dates.h>
#include <orvoshare/resources/StringTable.h>
#include <people/PersonReader.h>

namespace orvo::cli {
namespace {

struct ShowOrder {
    std::optional<std::int64_t> id;
    std::string uid;
    bool withGroups = false;
};

// What only the card says that the record came from doesn't keep the rest from being shown either.
Person PersonOf(Store& store, const CAddressRecord& record, ExitCode& code) {
    std::string loss;
    Person person = ReadPerson(record, store.Addresses(), loss);
    if (!loss.empty()) {
        PrintError(loss);
        code = kSomeSkipped;
    }
    if (person.isGroup) NameMembers(store, person);
    return person;
}

// A note that can't be read doesn't keep the rest from being shown.
std::string NoteOf(Store& store, const CBaseRecord& record, const char* what, ExitCode& code) {
    std::string note;
    if (record.GetNoteUtf8(note) != 0) {
        PrintError(fmt::format("{}: the note of {} {} can't be read", store.Engine().LastError(),
                               what, record.GetId()));
        code = kSomeSkipped;
    }
    return note;
}

Json AsJson(Store& store, const CAddressRecord& record, ExitCode& code) {
    Json json{{"id", record.GetId()}};
    for (const FieldName& field : kFieldNames)
        json[field.key] = std::string(record.Utf8(field.field));
    json["phones"] = Json::array();
    for (long slot = 1; slot <= kPhoneSlots; ++slot) {
        const std::string text(record.Utf8(PhoneField(slot)));
        if (text.empty()) continue;
        long label = 0;
        record.GetPhoneLabelID(slot, label);
        json["phones"].push_back({{"slot", slot},
                                  {"labelId", label},
                                  {"label", store.Addresses().StoredPhoneLabel(label)},
                                  {"text", text}});
    }
    long displayPhone = 1;
    record.GetDisplayPhone(displayPhone);
    json["displayPhone"] = displayPhone;
    json["custom"] = Json::array();
    for (int number = 1; number <= kCustomFields; ++number) {
        json["custom"].push_back(std::string(record.Utf8(CustomField(number))));
    }
    json["note"] = NoteOf(store, record, "address", code);
    json["category"] = StoredCategoryName(store.Addresses(), record);
    json["private"] = record.IsPrivate() != 0;
    json["archived"] = record.IsArchived() != 0;
    AddIdentity(record, json);
    return json;
}

// What every record has.
void PrintMarks(const CBaseRecord& record) {
    if (record.IsPrivate()) PrintField("Private", "yes");
    if (record.IsArchived()) PrintField("Archived", "yes");
    PrintIdentity(record);
}

void PrintAsText(Store& store, const CAddressRecord& record, ExitCode& code) {
    const Json json = AsJson(store, record, code);
    PrintField("ID", fmt::format("{}", record.GetId()));
    for (const FieldName& field : kFieldNames) PrintField(field.title, json[field.key]);
    for (const Json& phone : json["phones"]) {
        const bool display = phone["slot"] == json["displayPhone"];
        PrintField(ToUtf8(store.Addresses().GetPhoneLabel(phone["labelId"])),
                   phone["text"].get<std::string>() + (display ? "  (shown in lists)" : ""));
    }
    for (int number = 1; number <= kCustomFields; ++number) {
        PrintField(ToUtf8(store.Addresses().GetCustomLabel(number)), json["custom"][number - 1]);
    }
    PrintField("Note", json["note"]);
    PrintField("Category", CategoryName(store.Addresses(), record));
    PrintPerson(PersonOf(store, record, code));
    PrintMarks(record);
}

Json AsJson(Store& store, const CToDoRecord& record, ExitCode& code) {
    int priority = 0;
    long due = kMaxDate;
    long completed = kMaxDate;
    record.GetPriority(priority);
    record.GetDueDate(due);
    record.GetCompletionDate(completed);
    Json json{{"id", record.GetId()},
              {"description", std::string(record.DescriptionUtf8())},
              {"priority", priority},
              {"due", DayAsJson(due)},
              {"completed", record.IsCompleted() != 0},
              {"completedOn", DayAsJson(completed)},
              {"note", NoteOf(store, record, "to-do", code)},
              {"category", StoredCategoryName(store.ToDos(), record)},
              {"private", record.IsPrivate() != 0},
              {"archived", record.IsArchived() != 0}};
    AddToDoDetails(record, json);
    AddIdentity(record, json);
    return json;
}

void PrintAsText(Store& store, const CToDoRecord& record, ExitCode& code) {
    const Json json = AsJson(store, record, code);
    const auto printDay = [&](const char* title, const char* key) {
        if (!json[key].is_null()) PrintField(title, json[key]);
    };
    PrintField("To-do", fmt::format("{}", record.GetId()));
    PrintField("Description", json["description"]);
    PrintField("Priority", fmt::format("{}", json["priority"].get<int>()));
    printDay("Due", "due");
    PrintToDoDetails(record);
    if (record.IsCompleted()) PrintField("Completed", "yes");
    printDay("Completed on", "completedOn");
    PrintField("Note", json["note"]);
    PrintField("Category", CategoryName(store.ToDos(), record));
    PrintMarks(record);
}

void PrintMasked(const CBaseRecord& record, const char* title, bool json) {
    if (json) {
        PrintJson({{"id", record.GetId()}, {"private", true}, {"masked", true}});
    } else {
        PrintField(title, fmt::format("{}", record.GetId()));
        PrintLine(ModuleText(kStringPrivate));
    }
}

// What may be shown of the record; nothing is told of one that is hidden but that it is.
Told ToldOf(Store& store, const CBaseRecord& record, const char* what) {
    const Told told = store.Guard().Disclosed().Of(WayOut::View, record);
    if (told == Told::Nothing) {
        PrintWarning(fmt::format("{} {} is private and hidden: --show-private shows it", what,
                                 record.GetId()));
    }
    return told;
}

ExitCode ShowAddress(Store& store, const CAddressRecord& record, bool withGroups, bool json) {
    const Told told = ToldOf(store, record, "address");
    ExitCode code = told == Told::Nothing ? kSomeSkipped : kDone;
    if (told == Told::Nothing) return code;
    const Json groups = withGroups ? GroupsOf(store, record.GetId()) : Json::array();
    if (told == Told::Masked) {
        PrintMasked(record, "ID", json);
    } else if (json) {
        Json all = AsJson(store, record, code);
        all["person"] = PersonAsJson(PersonOf(store, record, code));
        if (withGroups) all["groups"] = groups;
        PrintJson(all);
    } else {
        PrintAsText(store, record, code);
        for (const Json& group : groups) PrintField("Group", group["name"]);
    }
    return code;
}

ExitCode ShowToDo(Store& store, const CToDoRecord& record, bool json) {
    const Told told = ToldOf(store, record, "to-do");
    ExitCode code = told == Told::Nothing ? kSomeSkipped : kDone;
    if (told == Told::Masked) {
        PrintMasked(record, "To-do", json);
    } else if (told == Told::Whole && json) {
        PrintJson(AsJson(store, record, code));
    } else if (told == Told::Whole) {
        PrintAsText(store, record, code);
    }
    return code;
}

// Calls `show` for each record of that uid that isn't in the trash.
template <class Record, class Table, class Show>
int ForEachOfUid(Store& store, Table& table, const std::string& uid, int& code, const Show& show) {
    std::vector<std::int64_t> ids;
    store.Check(table.FindUid(uid, ids));
    int count = 0;
    for (const std::int64_t id : ids) {
        Record record(table, 1);
        store.Check(table.Find(id, record));
        if (record.IsDeleted()) continue;
        ++count;
        code = std::max(code, static_cast<int>(show(record)));
    }
    return count;
}

int ShowUid(Store& store, const ShowOrder& order, bool json) {
    int code = kDone;
    int count = ForEachOfUid<CAddressRecord>(
        store, store.Addresses(), order.uid, code, [&](const CAddressRecord& record) {
            return ShowAddress(store, record, order.withGroups, json);
        });
    count += ForEachOfUid<CToDoRecord>(
        store, store.ToDos(), order.uid, code,
        [&](const CToDoRecord& record) { return ShowToDo(store, record, json); });
    if (count == 0) {
        throw CommandError(kNothingFound,
                           fmt::format("there is no entry with the uid {}", order.uid));
    }
    return code;
}

int Show(Store& store, const ShowOrder& order, bool json) {
    if (!order.id) return ShowUid(store, order, json);
    return ShowAddress(store, *FindAddress(store, *order.id), order.withGroups, json);
}

}  // namespace

void AddShowCommand(CLI::App& app, Invocation& invocation) {
    auto order = std::make_shared<ShowOrder>();
    CLI::App* show =
        app.add_subcommand("show",
                           "Show one address with all that is known of it, by its id, or "
                           "the addresses and to-dos of one uid");
    CLI::Option_group* which = show->add_option_group("Which");
    which->add_option("ID", order->id, "The id that `addresses` shows");
    which->add_option("--uid", order->uid, "The uid of addresses and to-dos");
    which->require_option(1);
    show->add_flag("--groups", order->withGroups,
                   "Also the groups that an address is in; reads all addresses");
    show->callback([order, &invocation] {
        invocation.command = [order, &invocation](Store& store) {
            return Show(store, *order, invocation.json);
        };
    });
}

}  // namespace orvo::cli
