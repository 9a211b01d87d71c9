// Storing the to-dos of a calendar as records.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <set>

#include <fmt/core.h>

#include <exchange/calendar/CalendarReader.h>
#include <exchange/calendar/ToDoFields.h>
#include <exchange/lines/ExchangeError.h>

namespace orvo {
namespace {

struct OtherRule {
    std::string_view component;
    std::string_view what;
};
constexpr std::array<OtherRule, 3> kOthers{
    {{"VEVENT", "an event"}, {"VJOURNAL", "a journal entry"}, {"VFREEBUSY", "free and busy time"}}};

// A component's name comes from the file and may be anything.
std::string Printable(std::string_view text) {
    constexpr std::size_t kLongest = 40;
    std::string result(text.substr(0, kLongest));
    std::replace_if(
        result.begin(), result.end(), [](unsigned char c) { return c < ' ' || c >= 0x7F; }, '?');
    return result;
}

}  // namespace

CalendarReader::CalendarReader(CToDoTable& table, ImportReport& report,
                               std::string_view fileCharset, ProgressMeter& meter)
    : m_table(table),
      m_report(report),
      m_meter(meter),
      m_categories(*table.GetCategoryManager()),
      m_fileCharset(fileCharset) {}

void CalendarReader::Take(const Entry& entry) {
    switch (entry.kind) {
        case EntryKind::CalendarBegin:
        case EntryKind::CalendarEnd:
            Finish();
            break;
        case EntryKind::CalendarProperty:
            if (EqualsIgnoringCase(entry.lines.front().name, "VERSION")) {
                m_version = entry.component;
            } else if (EqualsIgnoringCase(entry.lines.front().name, "TZ") && m_zoneLine.empty()) {
                m_zoneLine = FormatLine("TZ", entry.component, Dialect::Calendar20, "\r\n");
            }
            break;
        case EntryKind::TimeZone:
            if (entry.complete) {
                TakeZone(entry.source);
            } else {
                Skip(entry);
            }
            break;
        case EntryKind::ToDo:
            if (entry.complete) {
                m_waiting.push_back({entry.source, entry.number});
            } else {
                Skip(entry);
            }
            break;
        default:
            Skip(entry);
    }
}

// Of several zones of one name the first counts.
void CalendarReader::TakeZone(std::string_view source) {
    std::string name = ZoneNameOf(source);
    if (m_zones.count(name) != 0) return;
    std::string text(source);
    if (!text.ends_with('\n') && !text.ends_with('\r')) text += "\r\n";
    m_zones.emplace(std::move(name), SharedText(std::move(text)));
}

void CalendarReader::Skip(const Entry& entry) {
    const auto* const rule =
        std::find_if(kOthers.begin(), kOthers.end(), [&](const OtherRule& other) {
            return EqualsIgnoringCase(other.component, entry.component);
        });
    const std::string name = Printable(entry.component);
    std::string reason;
    if (entry.kind == EntryKind::ToDo) {
        reason = "the to-do has no END:VTODO";
    } else if (entry.kind == EntryKind::TimeZone) {
        reason = "the time zone has no END:VTIMEZONE";
    } else if (rule != kOthers.end()) {
        reason = fmt::format("{} ({}) is no to-do", rule->what, rule->component);
    } else {
        reason = fmt::format("a component {} is no to-do", name);
    }
    m_report.skipped.push_back({entry.number, std::move(reason)});
}

void CalendarReader::Finish() {
    const Dialect dialect = m_version.starts_with('1') ? Dialect::Calendar10 : Dialect::Calendar20;
    if (dialect == Dialect::Calendar10) m_opening = OpeningOf(m_zoneLine);
    for (const WaitingToDo& waiting : m_waiting) {
        EntryReader reader(waiting.source, waiting.number);
        Entry entry;
        if (reader.Next(entry)) Store(entry, dialect);
        m_meter.Pass(waiting.source);
    }
    m_waiting.clear();
    m_zones.clear();
    m_opening.reset();
    m_version.clear();
    m_zoneLine.clear();
}

std::vector<SharedText> CalendarReader::SharedOf(const Entry& toDo) const {
    std::set<std::string_view> names;
    for (const ContentLine& line : toDo.lines) {
        const std::string_view name = FindParameter(line.parameters, "TZID");
        if (!name.empty()) names.insert(name);
    }
    std::vector<SharedText> shared;
    if (m_opening) shared.push_back(*m_opening);
    for (const std::string_view name : names) {
        const auto zone = m_zones.find(name);
        if (zone != m_zones.end()) shared.push_back(zone->second);
    }
    return shared;
}

void CalendarReader::Store(const Entry& toDo, Dialect dialect) {
    if (!HoldsAnything(toDo.lines)) {
        m_report.skipped.push_back({toDo.number, "the to-do holds nothing"});
        return;
    }
    const ToDoParts parts = MakeToDoParts(toDo, dialect, SharedOf(toDo));
    m_clock.SetZones(parts.shared);
    Origin origin;
    if (!m_fileCharset.empty()) origin.charset = LegacyCharsetOf(toDo.lines, m_fileCharset);
    const ToDoFields fields = DeriveToDo(toDo.lines, dialect, origin.charset, m_clock);
    CToDoRecord record(m_table);
    long status = record.SetDescriptionUtf8(fields.description);
    status |= record.SetPriority(fields.priority);
    if (!fields.note.empty()) status |= record.SetNoteUtf8(fields.note);
    if (fields.dueDate != kMaxDate) status |= record.SetDueDate(fields.dueDate);
    if (fields.isCompleted) status |= record.SetCompleted(1, 0);
    if (fields.completionDate != kMaxDate)
        status |= record.SetCompletionDate(fields.completionDate);
    m_categories.Choose(fields.categories, origin);
    status |= record.SetCategoryId(origin.category);
    origin.due = CivilOfRecordDate(fields.dueDate);
    origin.completed = CivilOfRecordDate(fields.completionDate);
    if (fields.isPrivate) status |= record.SetPrivate(1);
    if (fields.isArchived) status |= record.SetArchived(1);
    status |= record.SetSource(parts.rest, FormatOrigin(origin), parts.shared);
    if (status != 0 || m_table.Add(record) != 0) {
        throw ExchangeError(fmt::format("line {}: the to-do can't be stored: {}", toDo.number,
                                        m_table.LastError()));
    }
    ++m_report.toDos;
}

}  // namespace orvo
