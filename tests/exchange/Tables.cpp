// Tables of a store in memory, and the text of their records.
// SPDX-License-Identifier: MIT
#include "exchange/Tables.h"

#include <fmt/core.h>

#include <exchange/cards/TableTexts.h>
#include <platform/text/SystemText.h>
#include <platform/time/TimeZone.h>

namespace orvo {
namespace {

constexpr std::string_view kFieldNames[] = {
    "",       "name",    "first",  "company", "name reading", "first reading", "company reading",
    "title",  "address", "city",   "state",   "zip",          "country",       "phone1",
    "phone2", "phone3",  "phone4", "phone5",  "custom1",      "custom2",       "custom3",
    "custom4"};

void DescribeShared(const CBaseRecord& record, std::vector<std::string>& lines) {
    std::string note;
    record.GetNoteUtf8(note);
    if (!note.empty()) lines.push_back("note: " + note);
    int category = 0;
    record.GetCategoryId(category);
    if (category != kNoCategory) {
        CCategory* named = nullptr;
        record.GetTable().GetCategoryManager()->FindIndex(category, named);
        lines.push_back("category: " + (named ? ToUtf8(named->GetName()) : "?"));
    }
    if (record.IsPrivate()) lines.emplace_back("private");
    if (record.IsArchived()) lines.emplace_back("archived");
}

std::string WithLineEnds(std::string_view lines) {
    std::string text;
    for (const char c : lines) {
        if (c == '\n') text += '\r';
        text += c;
    }
    return text;
}

std::string Shown(long date) {
    return FormatIso(CivilOfMoment(date).value_or(CivilTime{}));
}

}  // namespace

std::vector<std::string> Describe(const CAddressRecord& record) {
    std::vector<std::string> lines;
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
        lines.push_back(fmt::format("{}{}: {}", kFieldNames[i], label, text));
    }
    long display = 1;
    record.GetDisplayPhone(display);
    if (display != 1) lines.push_back(fmt::format("display: {}", display));
    DescribeShared(record, lines);
    return lines;
}

std::vector<std::string> Describe(const CToDoRecord& record) {
    std::vector<std::string> lines{"description: " + std::string(record.DescriptionUtf8())};
    int priority = 0;
    record.GetPriority(priority);
    if (priority != 3) lines.push_back(fmt::format("priority: {}", priority));
    long date = 0;
    record.GetDueDate(date);
    if (date != maxDate()) lines.push_back("due: " + Shown(date));
    if (record.IsCompleted()) lines.emplace_back("completed");
    record.GetCompletionDate(date);
    if (date != maxDate()) lines.push_back("completed on: " + Shown(date));
    DescribeShared(record, lines);
    return lines;
}

std::vector<std::string> DescribeAll(Tables& tables) {
    std::vector<std::string> all;
    const auto add = [&](const std::vector<std::string>& lines) {
        all.emplace_back("--");
        all.insert(all.end(), lines.begin(), lines.end());
    };
    CAddressRecord address(tables.addresses);
    CAddressIterator addresses(tables.addresses);
    for (long s = addresses.FindFirst(address); s == 0; s = addresses.FindNext(address)) {
        add(Describe(address));
    }
    CToDoRecord toDo(tables.toDos);
    CToDoIterator toDos(tables.toDos);
    for (long s = toDos.FindFirst(toDo); s == 0; s = toDos.FindNext(toDo)) add(Describe(toDo));
    return all;
}

std::string Card(std::string_view version, std::string_view lines) {
    return fmt::format("BEGIN:VCARD\r\nVERSION:{}\r\n{}END:VCARD\r\n", version,
                       WithLineEnds(lines));
}

std::string Calendar(std::string_view version, std::string_view lines) {
    return fmt::format("BEGIN:VCALENDAR\r\nVERSION:{}\r\n{}END:VCALENDAR\r\n", version,
                       WithLineEnds(lines));
}

}  // namespace orvo
