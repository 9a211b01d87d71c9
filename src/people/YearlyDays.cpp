// The days of a person that come back each year.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <string_view>

#include <exchange/cards/CardFields.h>
#include <exchange/lines/EntryReader.h>
#include <people/DetailReader.h>
#include <people/PersonReader.h>
#include <people/YearlyDays.h>

namespace orvo {
namespace {

// Most cards hold no day, which is seen at once.
bool MayHoldDay(std::string_view source) {
    constexpr std::array<std::string_view, 4> names{"BDAY", "ANNIVERSARY", "X-ABDATE",
                                                    "CONTACT_EVENT"};
    return std::any_of(names.begin(), names.end(), [source](std::string_view name) {
        return std::search(source.begin(), source.end(), name.begin(), name.end(),
                           [](unsigned char a, unsigned char b) { return std::toupper(a) == b; }) !=
               source.end();
    });
}

bool MayBeDay(const ContentLine& line) {
    const DetailProperty* property = FindDetailProperty(line.name);
    return property &&
           (property->form == DetailForm::Date || property->form == DetailForm::Android);
}

YearlyDays DaysOfCard(const LineList& lines, std::string_view charset) {
    YearlyDays found;
    DetailReader reader(lines, DialectOfCard(lines), charset);
    std::optional<Detail> birthday;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const ContentLine line = lines[i];
        if (EqualsIgnoringCase(line.name, "UID")) found.uid = reader.TextOf(line);
        if (!MayBeDay(line)) continue;
        const std::optional<Detail> detail = reader.Read(i);
        if (!detail || !detail->date || !detail->date->ComesBack()) continue;
        const YearlyDay day{detail->kind, *detail->date};
        if (detail->kind == DetailKind::Birthday) {
            if (!birthday || detail->preference < birthday->preference) birthday = detail;
        } else if (detail->kind == DetailKind::Anniversary &&
                   std::find(found.days.begin(), found.days.end(), day) == found.days.end()) {
            found.days.push_back(day);  // programs write the same one under several names
        }
    }
    if (birthday) found.days.insert(found.days.begin(), {birthday->kind, *birthday->date});
    return found;
}

}  // namespace

YearlyDays ReadYearlyDays(const CAddressRecord& record) {
    std::string source;
    if (record.GetSource(source) != 0 || !MayHoldDay(source)) return {};
    EntryReader reader(source);
    Entry entry;
    if (!reader.Next(entry) || entry.kind != EntryKind::Card) return {};
    return DaysOfCard(entry.lines, CharsetOf(record));
}

}  // namespace orvo
