// Writing a to-do record as a VTODO, and the calendar around them.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <fmt/core.h>

#include <exchange/calendar/ToDoConversion.h>
#include <exchange/calendar/ToDoEdits.h>
#include <exchange/calendar/ToDoWriter.h>
#include <exchange/lines/ExchangeError.h>
#include <exchange/lines/LossText.h>
#include <exchange/lines/Stamps.h>
#include <platform/time/CTime.h>

namespace orvo {
namespace {

bool HasUid(std::string_view lines) {
    ContentLineReader reader(lines);
    ContentLine line;
    while (reader.Next(line)) {
        if (EqualsIgnoringCase(line.name, "UID")) return true;
    }
    return false;
}

// One that isn't stored is of now.
RowIdentity IdentityOf(const CToDoRecord& record) {
    RowIdentity identity;
    if (record.GetId() != 0) record.GetIdentity(identity);
    const std::int64_t now = CTime::GetCurrentMilliseconds();
    if (identity.created == 0) identity.created = now;
    if (identity.modified == 0) identity.modified = now;
    return identity;
}

// The lines that a fresh to-do begins with, those of another format that it keeps among them.
std::string FreshToDo(const RowIdentity& identity, const ToDoSource* other,
                      std::string_view charset, Dialect dialect, CalendarClock& clock) {
    const std::string kept = other ? ConvertLines(*other, charset, dialect, clock) : std::string();
    std::string text = "BEGIN:VTODO\r\n";
    if (!HasUid(kept)) {
        const std::string uid = identity.uid.empty() ? NewUid() : identity.uid;
        text += FormatLine("UID", Escape(uid, dialect), dialect, "\r\n");
    }
    if (!other) {
        const bool isNew = dialect == Dialect::Calendar20;
        text += FormatLine(isNew ? "CREATED" : "DCREATED", FormatStamp(identity.created), dialect,
                           "\r\n");
    }
    return text + kept + "END:VTODO\r\n";
}

}  // namespace

ToDoWriter::ToDoWriter(CToDoTable& table, Dialect dialect)
    : m_table(table), m_dialect(dialect), m_categories(*table.GetCategoryManager()) {}

Origin ToDoWriter::OriginHere(const ToDoFields& fields) {
    Origin origin;
    m_categories.Find(fields.categories, origin);
    origin.due = CivilOfRecordDate(fields.dueDate);
    origin.completed = CivilOfRecordDate(fields.completionDate);
    return origin;
}

ToDoWriter::Written ToDoWriter::Write(const CToDoRecord& record, std::string* loss) {
    ToDoParts parts;
    std::string originText;
    ToDoValues now;
    const bool isWhole = now.Read(record);
    if (!isWhole || record.GetSourceParts(parts.shared, parts.rest) != 0 ||
        record.GetOrigin(originText) != 0) {
        const std::string reason = m_table.LastError();
        if (!loss) throw ExchangeError("a to-do can't be read from the store: " + reason);
        *loss = LossText("to-do", record, reason);
        parts = {};
        originText.clear();
    }
    if (originText == kOnlyExported) {
        parts = {};
        originText.clear();
    }
    EntryReader reader(parts.rest);
    ToDoSource source;
    const bool hasSource = ReadToDoSource(parts, reader, source);
    const bool isFresh = !hasSource || source.dialect != m_dialect;
    const RowIdentity identity = IdentityOf(record);
    std::optional<Origin> origin = ParseOrigin(originText);
    std::string charset = origin ? origin->charset : std::string();
    const std::string freshText =
        isFresh ? FreshToDo(identity, hasSource ? &source : nullptr, charset, m_dialect, m_clock)
                : "";
    EntryReader freshReader(freshText);
    Written written;
    if (isFresh) {
        freshReader.Next(source.toDo);
        origin.reset();
        charset.clear();
    } else {
        written.timeZones = source.timeZones;
    }
    m_clock.SetZones(written.timeZones);
    const ToDoFields was = DeriveToDo(source.toDo.lines, m_dialect, charset, m_clock);
    if (!origin) origin = OriginHere(was);
    LineEdits edits(source.toDo.lines, m_dialect, charset);
    ToDoEdits(was, *origin, now, m_dialect, edits).Run(m_clock, m_categories);
    if (isFresh || !edits.IsEmpty()) {
        const bool isNew = m_dialect == Dialect::Calendar20;
        if (isNew) SetStamp(edits, source.toDo.lines, "DTSTAMP", identity.modified);
        SetStamp(edits, source.toDo.lines, "LAST-MODIFIED", identity.modified);
    }
    written.toDo = edits.IsEmpty() ? std::string(source.toDo.source) : edits.Text();
    if (hasSource && m_dialect == Dialect::Calendar20) written.instances = source.instances;
    return written;
}

void CalendarText::Add(const ToDoWriter::Written& written) {
    std::map<std::string, SharedText> zones;
    std::string zoneLine;
    for (const SharedText& text : written.timeZones) {
        if (IsZone(text.Text())) {
            zones.try_emplace(ZoneNameOf(text.Text()), text);
        } else {
            zoneLine += ZoneLineOf(text.Text());
        }
    }
    const auto fits = [&](const Calendar& calendar) {
        if (!calendar.toDos.empty() && calendar.zoneLine != zoneLine) return false;
        return std::all_of(zones.begin(), zones.end(), [&](const auto& zone) {
            const auto known = calendar.zones.find(zone.first);
            return known == calendar.zones.end() || known->second == zone.second;
        });
    };
    auto place = std::find_if(m_calendars.begin(), m_calendars.end(), fits);
    if (place == m_calendars.end()) place = m_calendars.emplace(m_calendars.end());
    place->zoneLine = zoneLine;
    for (const auto& [name, text] : zones) place->zones.try_emplace(name, text);
    place->toDos.append(written.toDo);
    if (!written.toDo.ends_with('\n') && !written.toDo.ends_with('\r')) place->toDos += "\r\n";
    place->toDos.append(written.instances);
}

std::string CalendarText::Text() const {
    std::string text;
    for (const Calendar& calendar : m_calendars) {
        text.append("BEGIN:VCALENDAR\r\nPRODID:-//OrvoShare//Orvo//EN\r\n");
        text.append(m_dialect == Dialect::Calendar10 ? "VERSION:1.0\r\n" : "VERSION:2.0\r\n");
        text.append(calendar.zoneLine);
        for (const auto& zone : calendar.zones) text.append(zone.second.Text());
        text.append(calendar.toDos).append("END:VCALENDAR\r\n");
    }
    return text;
}

}  // namespace orvo
