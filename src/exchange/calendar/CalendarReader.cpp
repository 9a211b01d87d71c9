// Storing the to-dos of a calendar as records.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <set>

#include <fmt/core.h>

#include <exchange/calendar/CalendarReader.h>
#include <exchange/calendar/SeriesInstances.h>
#include <exchange/calendar/ToDoFields.h>
#include <exchange/calendar/ToDoFill.h>
#include <exchange/calendar/ToDoText.h>
#include <exchange/calendar/ToDoWriter.h>
#include <exchange/lines/EntryContent.h>
#include <exchange/lines/ExchangeError.h>

namespace orvo {
namespace {

struct OtherRule {
    std::string_view component;
    std::string_view what;
};
constexpr std::array<OtherRule, 3> kOthers{
    {{"VEVENT", "an event"}, {"VJOURNAL", "a journal entry"}, {"VFREEBUSY", "free and busy time"}}};

void AppendToDo(std::string_view source, std::string& text) {
    text += source;
    if (!text.ends_with('\n') && !text.ends_with('\r')) text += "\r\n";
}

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
                               std::string_view fileCharset, ProgressMeter& meter, KnownEntry known)
    : m_table(table),
      m_report(report),
      m_meter(meter),
      m_categories(*table.GetCategoryManager()),
      m_fileCharset(fileCharset),
      m_updates(known == KnownEntry::Update),
      m_known(table, TableKind::ToDo, known) {}

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
    StoreWaiting(dialect);
    m_waiting.clear();
    m_zones.clear();
    m_opening.reset();
    m_version.clear();
    m_zoneLine.clear();
}

void CalendarReader::StoreWaiting(Dialect dialect) {
    std::vector<std::string_view> texts;
    for (const WaitingToDo& waiting : m_waiting) texts.push_back(waiting.source);
    auto instances = dialect == Dialect::Calendar20
                         ? InstancesOfSeries(texts)
                         : std::map<std::size_t, std::vector<std::size_t>>();
    std::set<std::size_t> isInSeries;
    for (const auto& [place, own] : instances) isInSeries.insert(own.begin(), own.end());
    for (std::size_t i = 0; i < m_waiting.size(); ++i) {
        if (isInSeries.contains(i)) continue;
        EntryReader reader(m_waiting[i].source, m_waiting[i].number);
        Series series;
        series.dialect = dialect;
        for (const std::size_t own : instances[i]) AppendToDo(texts[own], series.instances);
        if (reader.Next(series.toDo)) Store(series);
        m_meter.Pass(m_waiting[i].source);
    }
}

std::vector<SharedText> CalendarReader::SharedOf(const Series& series) const {
    std::set<std::string, std::less<>> names;
    const auto takeNames = [&names](const LineList& lines) {
        for (const ContentLine& line : lines) {
            const std::string_view name = FindParameter(line.parameters, "TZID");
            if (!name.empty()) names.emplace(name);
        }
    };
    takeNames(series.toDo.lines);
    EntryReader reader(series.instances);
    for (Entry instance; reader.Next(instance);) takeNames(instance.lines);
    std::vector<SharedText> shared;
    if (m_opening) shared.push_back(*m_opening);
    for (const std::string& name : names) {
        const auto zone = m_zones.find(name);
        if (zone != m_zones.end()) shared.push_back(zone->second);
    }
    return shared;
}

void CalendarReader::Store(const Series& series) {
    const Entry& toDo = series.toDo;
    if (!HoldsAnything(toDo.lines)) {
        m_report.skipped.push_back({toDo.number, "the to-do holds nothing"});
        return;
    }
    Origin origin;
    if (!m_fileCharset.empty()) origin.charset = LegacyCharsetOf(toDo.lines, m_fileCharset);
    CToDoRecord row(m_table);
    const auto known = m_known.Take(toDo.source, row, [&](const CBaseRecord& each) {
        return Compare(series, origin.charset, static_cast<const CToDoRecord&>(each));
    });
    if (known) CountKnown(*known, toDo.number, NameOf(row), m_report.toDos, m_report);
    if (known && !known->isNewer) {
        if (known->isDeleted) Check(m_table.Undelete(row), toDo);
        return;
    }
    if (!known && StoreInstance(series)) return;
    CToDoRecord record(m_table);
    Fill(series, origin, record);
    if (known) {
        Update(toDo, row, record);
    } else {
        Check(m_table.Add(record), toDo);
        m_known.NoteAdded(record.GetId());
        ++m_report.toDos;
    }
}

bool CalendarReader::StoreInstance(const Series& series) {
    const Entry& toDo = series.toDo;
    const bool isInstance = m_updates && series.dialect == Dialect::Calendar20;
    if (!isInstance || !IsInstance(toDo.source)) return false;
    std::vector<std::int64_t> ids;
    m_table.FindUid(ReadSourceStamp(toDo.source).uid, ids);
    CToDoRecord row(m_table);
    for (const std::int64_t id : ids) {
        const bool isSeries =
            m_table.Find(id, row) == 0 && row.IsDeleted() == 0 && row.IsRepeating();
        if (!isSeries) continue;
        std::string instance;
        AppendToDo(toDo.source, instance);
        bool isNew = false;
        Check(EditToDoText(row,
                           [&](ToDoText& text) {
                               for (const SharedText& zone : SharedOf(series)) {
                                   const bool isThere = std::count(text.timeZones.begin(),
                                                                   text.timeZones.end(), zone) > 0;
                                   if (!isThere) text.timeZones.push_back(zone);
                               }
                               return isNew = SetInstance(text, instance);
                           }),
              toDo);
        ++(isNew ? m_report.updated : m_report.unchanged);
        return true;
    }
    return false;
}

void CalendarReader::Fill(const Series& series, Origin& origin, CToDoRecord& record) {
    const Entry& toDo = series.toDo;
    ToDoParts parts = MakeToDoParts(toDo, series.dialect, SharedOf(series));
    if (!series.instances.empty()) {
        std::string whole;
        AppendToDo(parts.rest, whole);
        parts.rest = whole + series.instances;
    }
    m_clock.SetZones(parts.shared);
    const ToDoFields fields = DeriveToDo(toDo.lines, series.dialect, origin.charset, m_clock);
    m_categories.Choose(fields.categories, origin);
    origin.due = CivilOfRecordDate(fields.dueDate);
    origin.completed = CivilOfRecordDate(fields.completionDate);
    Check(FillToDo(fields, origin, record), toDo);
    Check(record.SetDetails(DetailsOf(toDo.source, fields)), toDo);
    Check(record.SetSource(parts.rest, FormatOrigin(origin), parts.shared), toDo);
}

// Who completes a to-do that repeats means the date at which it stands here.
void CalendarReader::Update(const Entry& toDo, const CToDoRecord& row, CToDoRecord& record) {
    CToDoRecord base(m_table);
    Check(FillBase(row, base), toDo);
    Check(KeepEdits(base, row, record), toDo);
    const bool completesOnce = record.IsCompleted() != 0 && record.IsRepeating() &&
                               row.IsCompleted() == 0 && row.IsRepeating();
    long date = kMaxDate;
    record.GetCompletionDate(date);
    if (completesOnce) Check(record.SetCompleted(0, 0), toDo);
    Check(m_table.Replace(row.GetId(), record), toDo);
    if (completesOnce) Check(record.CompleteOn(date), toDo);
}

void CalendarReader::Check(long status, const Entry& toDo) const {
    if (status == 0) return;
    throw ExchangeError(
        fmt::format("line {}: the to-do can't be stored: {}", toDo.number, m_table.LastError()));
}

KnownEntries::Comparison CalendarReader::Compare(const Series& series, std::string_view charset,
                                                 const CToDoRecord& row) {
    const Entry& toDo = series.toDo;
    const Dialect dialect = series.dialect;
    ToDoParts parts;
    std::string originText;
    if (row.GetSourceParts(parts.shared, parts.rest) != 0 || row.GetOrigin(originText) != 0) {
        return {};
    }
    const Origin origin = ParseOrigin(originText).value_or(Origin{});
    EntryReader sourceReader(parts.rest);
    ToDoSource source;
    const bool hasSource = ReadToDoSource(parts, sourceReader, source);
    const ToDoWriter::Written now = ToDoWriter(m_table, dialect).Write(row);
    const std::string& text = now.toDo;
    if (now.instances != series.instances) return {false, origin.isEdited};
    KnownEntries::Comparison comparison;
    comparison.isEdited = !hasSource || origin.isEdited;
    if (!comparison.isEdited) {
        const std::string own =
            source.dialect == dialect ? text : ToDoWriter(m_table, source.dialect).Write(row).toDo;
        comparison.isEdited = own != source.toDo.source;
    }
    comparison.isSame = text == toDo.source;
    EntryReader reader(text);
    Entry written;
    if (comparison.isSame || !reader.Next(written)) return comparison;
    comparison.isSame = ContentOf(written.lines, dialect, origin.charset) ==
                        ContentOf(toDo.lines, dialect, charset);
    return comparison;
}

// What was known of the row before: what it was imported from, else what would be exported of it.
long CalendarReader::FillBase(const CToDoRecord& row, CToDoRecord& base) {
    ToDoParts parts;
    std::string originText;
    long status = row.GetSourceParts(parts.shared, parts.rest);
    if (status == 0) status = row.GetOrigin(originText);
    if (status != 0) return status;
    if (originText == kOnlyExported) originText.clear();
    if (originText.empty()) parts = {{}, ToDoWriter(m_table, Dialect::Calendar20).Write(row).toDo};
    EntryReader reader(parts.rest);
    ToDoSource source;
    if (!ReadToDoSource(parts, reader, source)) return 0;
    std::optional<Origin> origin = ParseOrigin(originText);
    m_clock.SetZones(source.timeZones);
    const ToDoFields fields =
        DeriveToDo(source.toDo.lines, source.dialect, origin ? origin->charset : "", m_clock);
    if (!origin) origin = ToDoWriter(m_table, source.dialect).OriginHere(fields);
    return FillToDo(fields, *origin, base);
}

std::string CalendarReader::NameOf(const CToDoRecord& row) {
    const std::string_view name = FirstLineOf(row.DescriptionUtf8());
    return std::string(row.IsPrivate() != 0 || name.empty() ? "the to-do" : name);
}

}  // namespace orvo
