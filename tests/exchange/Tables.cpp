// Tables of a store in memory, and the text of their records.
// SPDX-License-Identifier: MIT
#include "exchange/Tables.h"

#include <fmt/format.h>

#include <exchange/files/ExportFile.h>
#include <platform/text/SystemText.h>
#include <platform/time/TimeZone.h>
#include <support/RecordReaders.h>

namespace orvo {
namespace {

constexpr std::string_view kFieldNames[] = {
    "",       "name",    "first",  "company", "name reading", "first reading", "company reading",
    "title",  "address", "city",   "state",   "zip",          "country",       "phone1",
    "phone2", "phone3",  "phone4", "phone5",  "custom1",      "custom2",       "custom3",
    "custom4"};

template <class Record, class Iterator, class Table>
std::vector<std::unique_ptr<Record>> Walk(Table& table) {
    std::vector<std::unique_ptr<Record>> all;
    Iterator iterator(table);
    auto record = std::make_unique<Record>(table);
    for (long s = iterator.FindFirst(*record); s == 0; s = iterator.FindNext(*record)) {
        all.push_back(std::exchange(record, std::make_unique<Record>(table)));
    }
    return all;
}

std::string WithShared(Strings fields, const CBaseRecord& record) {
    if (const std::string note = NoteOf(record); !note.empty()) fields.push_back("note: " + note);
    if (const int category = CategoryOf(record); category != kNoCategory) {
        CCategory* named = nullptr;
        record.GetTable().GetCategoryManager()->FindIndex(category, named);
        fields.push_back("category: " + (named ? ToUtf8(named->GetName()) : "?"));
    }
    if (record.IsPrivate()) fields.emplace_back("private");
    if (record.IsArchived()) fields.emplace_back("archived");
    return fmt::format("{}", fmt::join(fields, " | "));
}

std::string Framed(std::string_view name, std::string_view version, std::string_view lines) {
    const std::string end(lines.empty() || lines.ends_with('\n') ? "" : "\n");
    std::string text;
    for (const char c :
         fmt::format("BEGIN:{}\nVERSION:{}\n{}{}END:{}\n", name, version, lines, end, name)) {
        if (c == '\n') text += '\r';
        text += c;
    }
    return text;
}

}  // namespace

std::vector<std::unique_ptr<CAddressRecord>> All(CAddressTable& table) {
    return Walk<CAddressRecord, CAddressIterator>(table);
}

std::vector<std::unique_ptr<CToDoRecord>> All(CToDoTable& table) {
    return Walk<CToDoRecord, CToDoIterator>(table);
}

std::string Tables::Export(CAddressRecord& record) {
    return ExportCard(record, addresses);
}

std::unique_ptr<CAddressRecord> Tables::Address(std::size_t place) {
    return std::move(All(addresses).at(place));
}

std::unique_ptr<CToDoRecord> Tables::ToDo(std::size_t place) {
    return std::move(All(toDos).at(place));
}

std::string Describe(const CAddressRecord& record) {
    Strings fields;
    auto& table = static_cast<CAddressTable&>(record.GetTable());
    for (int i = 1; i <= static_cast<int>(AddressField::Custom4); ++i) {
        const std::string_view text = record.Utf8(static_cast<AddressField>(i));
        if (text.empty()) continue;
        std::string label;
        const long slot = i - static_cast<int>(AddressField::Phone1) + 1;
        if (slot >= 1 && slot <= kPhoneSlots) {
            long id = 0;
            record.GetPhoneLabelID(slot, id);
            label = " (" + ToUtf8(table.GetPhoneLabel(id)) + ")";
        }
        fields.push_back(fmt::format("{}{}: {}", kFieldNames[i], label, text));
    }
    long display = 1;
    record.GetDisplayPhone(display);
    if (display != 1) fields.push_back(fmt::format("display: {}", display));
    return WithShared(fields, record);
}

std::string Describe(const CToDoRecord& record) {
    Strings fields{std::string(record.DescriptionUtf8())};
    const auto addDate = [&](const char* what, long date) {
        if (date == maxDate()) return;
        fields.push_back(what + FormatIso(CivilOfMoment(date).value_or(CivilTime{})));
    };
    if (const int priority = PriorityOf(record); priority != 3) {
        fields.push_back(fmt::format("priority: {}", priority));
    }
    addDate("due: ", DueDateOf(record));
    if (record.IsCompleted()) fields.emplace_back("completed");
    addDate("completed on: ", CompletionDateOf(record));
    return WithShared(fields, record);
}

Strings DescribeAll(Tables& tables) {
    Strings all;
    for (const auto& record : All(tables.addresses)) all.push_back(Describe(*record));
    for (const auto& record : All(tables.toDos)) all.push_back(Describe(*record));
    return all;
}

Strings DescribeAll(std::string_view text) {
    Tables tables(text);
    return DescribeAll(tables);
}

std::string Card(std::string_view lines, std::string_view version) {
    return Framed("VCARD", version, lines);
}

std::string Calendar(std::string_view lines, std::string_view version) {
    return Framed("VCALENDAR", version, lines);
}

std::string ToDo(std::string_view lines) {
    return fmt::format("BEGIN:VTODO\n{}{}END:VTODO\n", lines, lines.ends_with('\n') ? "" : "\n");
}

std::string Plain(std::string_view text) {
    std::string plain;
    for (const char c : text) {
        if (c == '\n') {
            EXPECT_TRUE(plain.ends_with('\r')) << text;
            if (!plain.empty()) plain.pop_back();
        }
        plain += c;
    }
    return plain;
}

}  // namespace orvo
