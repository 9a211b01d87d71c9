// A to-do as a text of iCalendar.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <exchange/calendar/ToDoFields.h>
#include <exchange/calendar/ToDoFill.h>
#include <exchange/calendar/ToDoText.h>
#include <exchange/calendar/ToDoWriter.h>
#include <exchange/lines/ExchangeError.h>
#include <exchange/lines/Stamps.h>
#include <platform/time/CTime.h>

namespace orvo {
namespace {

CToDoTable& TableOf(const CToDoRecord& record) {
    return static_cast<CToDoTable&>(record.GetTable());
}

void EndLine(std::string& text) {
    if (!text.ends_with('\n') && !text.ends_with('\r')) text += "\r\n";
}

// A to-do of a legacy set becomes UTF-8 as a whole with the first edit.
std::string InUtf8(const std::string& text, const std::string& charset) {
    EntryReader reader(text);
    Entry toDo;
    if (charset.empty() || !reader.Next(toDo)) return text;
    LineEdits edits(toDo.lines, Dialect::Calendar20, charset);
    for (std::size_t line = 1; line + 1 < toDo.lines.size(); ++line) {
        if (toDo.lines[line].name.empty()) continue;
        edits.At(static_cast<std::ptrdiff_t>(line));
        break;
    }
    return edits.Text();
}

// What was edited here says when, so that nobody takes it for what it came as.
ToDoText Stamped(const ToDoText& text) {
    ToDoText stamped = text;
    const std::int64_t now = CTime::GetCurrentMilliseconds();
    EditLines(stamped, [now](const LineList& lines, LineEdits& edits) {
        SetStamp(edits, lines, "DTSTAMP", now);
        SetStamp(edits, lines, "LAST-MODIFIED", now);
    });
    return stamped;
}

// The category and the time of day of a due day are the record's own business.
void KeepOwn(const CToDoRecord& record, ToDoFields& fields, Origin& origin) {
    int category = kNoCategory;
    long due = kMaxDate;
    record.GetCategoryId(category);
    record.GetDueDate(due);
    if (origin.category != category) origin.listed.reset();
    origin.category = category;
    const bool isDay = fields.due.form == CalendarDate::Form::Day;
    const std::optional<CivilTime> own = CivilOfRecordDate(due);
    const std::optional<CivilTime> day = CivilOfRecordDate(fields.dueDate);
    if (isDay && own && day) {
        fields.dueDate = static_cast<long>(
            MomentOfCivil({day->year, day->month, day->day, own->hour, own->minute, own->second}));
    }
    origin.due = CivilOfRecordDate(fields.dueDate);
}

long FillFresh(const CToDoRecord& record, const ToDoText& text, CToDoRecord& fresh) {
    EntryReader reader(text.text);
    Entry toDo;
    if (!reader.Next(toDo) || toDo.kind != EntryKind::ToDo || !toDo.complete) {
        return static_cast<long>(TableOf(record).GetEngine().Fail(
            StoreStatus::Refused, "the text isn't a whole to-do of a calendar"));
    }
    CalendarClock clock;
    clock.SetZones(text.timeZones);
    ToDoFields fields = DeriveToDo(toDo.lines, Dialect::Calendar20, {}, clock);
    Origin origin = ToDoWriter(TableOf(record), Dialect::Calendar20).OriginHere(fields);
    origin.isEdited = true;
    KeepOwn(record, fields, origin);
    long status = FillToDo(fields, origin, fresh);
    if (status == 0) status = fresh.SetDetails(DetailsOf(toDo.source, fields));
    if (status == 0) {
        status = fresh.SetSource(text.text, FormatOrigin(origin), text.timeZones);
    }
    return status;
}

}  // namespace

long ReadToDoText(const CToDoRecord& record, ToDoText& result) {
    std::string origin;
    if (const long status = record.GetOrigin(origin); status != 0) return status;
    ToDoWriter::Written written;
    try {
        written = ToDoWriter(TableOf(record), Dialect::Calendar20).Write(record);
    } catch (const ExchangeError&) {
        return static_cast<long>(StoreStatus::Failed);
    }
    // Written in another format, or edited, it is UTF-8 already.
    std::vector<SharedText> shared;
    std::string rest;
    const std::optional<Origin> parsed = ParseOrigin(origin);
    if (parsed && !parsed->charset.empty()) {
        if (const long status = record.GetSourceParts(shared, rest); status != 0) return status;
        if (rest.starts_with(written.toDo)) written.toDo = InUtf8(written.toDo, parsed->charset);
    }
    EndLine(written.toDo);
    if (!written.instances.empty()) EndLine(written.instances);
    result = {std::move(written.timeZones), written.toDo + written.instances};
    return 0;
}

long WriteToDoText(CToDoRecord& record, const ToDoText& edited) {
    CToDoTable& table = TableOf(record);
    const ToDoText text = Stamped(edited);
    CToDoRecord fresh(table);
    long status = FillFresh(record, text, fresh);
    if (status != 0) return status;
    if (record.GetId() != 0) {
        status = table.Replace(record.GetId(), fresh);
        if (status == 0) record.TakeOver(fresh);
        return status;
    }
    std::string origin;
    std::string note;
    int placement = 0;
    record.GetPlacementPos(placement);
    fresh.GetOrigin(origin);
    fresh.GetNoteUtf8(note);
    record.TakeOver(fresh);
    status = record.SetNoteUtf8(note);
    if (status == 0) status = record.SetSource(text.text, origin, text.timeZones);
    return status == 0 && placement != 0 ? record.SetPlacementPos(placement) : status;
}

long EditToDoText(CToDoRecord& record, const std::function<bool(ToDoText&)>& edit) {
    StoreTransaction transaction(TableOf(record).GetEngine());
    long status = static_cast<long>(transaction.Status());
    if (status == 0 && record.GetId() != 0) {
        status = TableOf(record).Find(record.GetId(), record);
    }
    ToDoText text;
    if (status == 0) status = ReadToDoText(record, text);
    if (status != 0 || !edit(text)) return status;
    status = WriteToDoText(record, text);
    return status == 0 ? static_cast<long>(transaction.Commit()) : status;
}

bool EditLines(ToDoText& toDo,
               const std::function<void(const LineList& lines, LineEdits& edits)>& edit) {
    EntryReader reader(toDo.text);
    Entry entry;
    if (!reader.Next(entry) || entry.kind != EntryKind::ToDo || !entry.complete) return false;
    LineEdits edits(entry.lines, Dialect::Calendar20);
    edit(entry.lines, edits);
    if (edits.IsEmpty()) return false;
    const std::string others = toDo.text.substr(entry.source.size());
    toDo.text = edits.Text() + others;
    return true;
}

}  // namespace orvo
