// Writing a to-do record as a VTODO, and the calendar around them.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <fmt/core.h>

#include <exchange/CalendarReader.h>
#include <exchange/ToDoEdits.h>
#include <exchange/ToDoWriter.h>
#include <platform/time/CTime.h>

namespace orvo {
namespace {

// The lines that a fresh to-do begins with, those of another format that it keeps among them.
std::string FreshToDo(const CToDoRecord& record, const ToDoSource* other, Dialect dialect,
                      CalendarClock& clock) {
    std::string uid = fmt::format("orvo-todo-{}@orvoshare", record.GetId());
    std::string kept;
    ValueDecoder decoder(other ? other->toDo.lines : std::span<const ContentLine>());
    std::string storage;
    for (const ContentLine& line : other ? other->toDo.lines : std::span<const ContentLine>()) {
        if (EqualsIgnoringCase(line.name, "UID")) uid = decoder.Decode(line, storage);
        if (!StartsIgnoringCase(line.name, "X-") ||
            EqualsIgnoringCase(line.name, "X-ORVO-ARCHIVED")) {
            continue;
        }
        std::string head(line.name);
        ParameterWalk walk(line.parameters);
        Parameter parameter;
        while (walk.Next(parameter)) {
            if (TellsEncoding(parameter) || parameter.source.empty()) continue;
            const bool needsName = parameter.name.empty() && dialect == Dialect::Calendar20;
            head.append(needsName ? ";TYPE=" : ";").append(parameter.source);
        }
        kept += FormatLine(head, decoder.Decode(line, storage), dialect, "\r\n");
    }
    std::string text = "BEGIN:VTODO\r\n" + FormatLine("UID", uid, dialect, "\r\n");
    if (dialect == Dialect::Calendar20) {
        const std::string now =
            clock.Format(CTime::GetCurrentTime().GetTime(), {0, CalendarDate::Form::Utc, {}});
        text += FormatLine("DTSTAMP", now, dialect, "\r\n");
    }
    return text + kept + "END:VTODO\r\n";
}

}  // namespace

ToDoWriter::ToDoWriter(CToDoTable& table, Dialect dialect)
    : m_table(table), m_dialect(dialect), m_categories(*table.GetCategoryManager()) {}

ToDoWriter::Written ToDoWriter::Write(const CToDoRecord& record) {
    std::string text;
    ToDoValues now;
    if (record.GetSource(text) != 0 || !now.Read(record)) {
        throw ExchangeError("a to-do can't be read from the store: " + m_table.LastError());
    }
    EntryReader reader(text);
    ToDoSource source;
    const bool hasSource = ReadToDoSource(text, reader, source);
    const bool isFresh = !hasSource || source.dialect != m_dialect;
    const std::string freshText =
        isFresh ? FreshToDo(record, hasSource ? &source : nullptr, m_dialect, m_clock) : "";
    EntryReader freshReader(freshText);
    Written written;
    if (isFresh) {
        freshReader.Next(source.toDo);
    } else {
        written.timeZones = source.timeZones;
    }
    m_clock.SetZones(written.timeZones);
    const ToDoFields was = DeriveToDo(source.toDo.lines, m_dialect, m_clock);
    LineEdits edits(source.toDo.lines, m_dialect);
    ToDoEdits(was, now, m_dialect, edits).Run(m_clock, m_categories);
    written.toDo = edits.IsEmpty() ? std::string(source.toDo.source) : edits.Text();
    return written;
}

void CalendarText::Add(const ToDoWriter::Written& written) {
    const auto zones = ListZones(written.timeZones);
    const auto fits = [&](const Calendar& calendar) {
        return std::all_of(zones.begin(), zones.end(), [&](const auto& zone) {
            const auto known = calendar.zones.find(zone.first);
            return known == calendar.zones.end() || known->second == zone.second;
        });
    };
    auto place = std::find_if(m_calendars.begin(), m_calendars.end(), fits);
    if (place == m_calendars.end()) place = m_calendars.emplace(m_calendars.end());
    for (const auto& [name, text] : zones) place->zones.try_emplace(name, text);
    place->toDos.append(written.toDo);
    if (!written.toDo.ends_with('\n') && !written.toDo.ends_with('\r')) place->toDos += "\r\n";
}

std::string CalendarText::Text() const {
    std::string text;
    for (const Calendar& calendar : m_calendars) {
        text.append("BEGIN:VCALENDAR\r\nPRODID:-//OrvoShare//Orvo//EN\r\n");
        text.append(m_dialect == Dialect::Calendar10 ? "VERSION:1.0\r\n" : "VERSION:2.0\r\n");
        for (const auto& zone : calendar.zones) text.append(zone.second);
        text.append(calendar.toDos).append("END:VCALENDAR\r\n");
    }
    return text;
}

}  // namespace orvo
