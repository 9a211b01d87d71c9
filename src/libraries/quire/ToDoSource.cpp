// What the source of a to-do says that its packed fields repeat.
// SPDX-License-Identifier: MIT
#include "ToDoSource.h"

#include <algorithm>
#include <charconv>
#include <chrono>

#include "MigratedRows.h"
#include "RowRules.h"
#include "SourceLines.h"
#include "SqliteStatements.h"

namespace orvo {

namespace {

// A longer rule isn't repeated in each row.
constexpr std::size_t kLongestRule = 255;

// The time that a clock shows which is one of UTC.
CivilTime CivilOfUtc(std::int64_t milliseconds) {
    const std::chrono::sys_seconds moment(std::chrono::seconds(milliseconds / 1000));
    const auto day = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss<std::chrono::seconds> time(moment - day);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
}

std::optional<CivilTime> StartOf(const std::string& value) {
    const std::optional<std::int64_t> moment = SourceMoment(value);
    if (!moment || *moment < 0) return std::nullopt;
    const bool isUtc = value.ends_with('Z') || value.ends_with('z');
    return isUtc ? CivilOfMoment(*moment / 1000) : std::optional(CivilOfUtc(*moment));
}

int PercentOf(const std::string& value) {
    int percent = 0;
    std::from_chars(value.data(), value.data() + value.size(), percent);
    return std::clamp(percent, 0, 100);
}

void TakeRule(std::string value, std::string& recurrence) {
    const bool isOther =
        !recurrence.empty() || value.empty() || value.size() > kLongestRule ||
        std::any_of(value.begin(), value.end(), [](char c) {
            return static_cast<unsigned char>(c) < ' ' || static_cast<unsigned char>(c) > '~';
        });
    recurrence = isOther ? std::string(kOtherRecurrence) : std::move(value);
}

void TakeLine(std::string_view name, std::string_view line, ToDoDetails& details) {
    if (IsSourceName(name, "DTSTART")) {
        if (!details.start) details.start = StartOf(SourceLineValue(line));
    } else if (IsSourceName(name, "RRULE")) {
        TakeRule(SourceLineValue(line), details.recurrence);
    } else if (IsSourceName(name, "RDATE")) {
        TakeRule({}, details.recurrence);
    } else if (IsSourceName(name, "PERCENT-COMPLETE")) {
        details.percent = PercentOf(SourceLineValue(line));
    } else if (IsSourceName(name, "RELATED-TO") && details.parent.empty()) {
        const std::string type = SourceLineParameter(line, "RELTYPE");
        std::string parent = SourceLineValue(line);
        const bool isParent = type.empty() || IsSourceName(type, "PARENT");
        if (isParent && IsStorableUid(parent)) details.parent = std::move(parent);
    }
}

void SetField(PackedFields& fields, ToDoField field, std::string_view value) {
    fields.Set(static_cast<std::uint8_t>(field), value);
}

// Gives each row the fields that its source says.
class DetailsFill {
public:
    explicit DetailsFill(SqliteFile& file) : m_file(file) {}

    int Prepare() {
        int result = m_file.Prepare(
            "SELECT id, fields, source FROM todo JOIN todo_extra USING (id) "
            "WHERE id > ?1 AND source <> x'' ORDER BY id",
            m_rows);
        if (result == SQLITE_OK) {
            result = m_file.Prepare("UPDATE todo SET fields = ?2 WHERE id = ?1", m_write);
        }
        return result;
    }

    int Run(RowReports& reports) {
        return ForEachRow(m_rows, reports, [this](const SqliteStatement& row) {
            PackedFields fields;
            const ToDoDetails details = ReadToDoDetails(row.Bytes(2));
            if (details == ToDoDetails() || !fields.Assign(row.Bytes(1))) return SQLITE_OK;
            PackDetails(details, fields);
            const SqliteRun write(m_write);
            write->Bind(1, row.Integer(0));
            write->BindBytes(2, fields.Bytes());
            const int result = write->Step();
            return result == SQLITE_DONE ? SQLITE_OK : result;
        });
    }

private:
    SqliteFile& m_file;
    SqliteStatement m_rows;
    SqliteStatement m_write;
};

}  // namespace

ToDoDetails ReadToDoDetails(std::string_view source) {
    ToDoDetails details;
    const SourceWalk walk{
        "bBdDeEpPrR",
        [&](std::string_view name, std::string_view line) { TakeLine(name, line, details); },
        [&](std::string_view component) {
            details.hasReminders |= IsSourceName(component, "VALARM");
        }};
    walk.Run(source);
    return details;
}

void PackDetails(const ToDoDetails& details, PackedFields& fields) {
    const char percent = static_cast<char>(std::clamp(details.percent, 0, 100));
    SetField(fields, ToDoField::Start, details.start ? FormatIso(*details.start) : "");
    SetField(fields, ToDoField::Recurrence, details.recurrence);
    SetField(fields, ToDoField::Parent, details.parent);
    SetField(fields, ToDoField::Percent,
             percent == 0 ? std::string_view() : std::string_view(&percent, 1));
    SetField(fields, ToDoField::Reminders, details.hasReminders ? "1" : "");
}

int FillToDoDetails(SqliteFile& file, const StoreProgress& progress) {
    RowReports reports(file, "SELECT count(*) FROM todo_extra", progress);
    DetailsFill fill(file);
    const int result = fill.Prepare();
    return result == SQLITE_OK ? fill.Run(reports) : result;
}

}  // namespace orvo
