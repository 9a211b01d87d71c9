// To-dos of calendars become records, and become to-dos again.
// SPDX-License-Identifier: MIT
#include <functional>
#include <random>
#include <set>
#include <tuple>

#include <fmt/format.h>

#include <exchange/calendar/ToDoParent.h>
#include <exchange/calendar/ToDoWriter.h>
#include <platform/time/CTime.h>
#include <platform/time/TimeZone.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

using Edit = std::function<void(CToDoRecord&)>;

constexpr Dialect kOld = Dialect::Calendar10;

// A zone that is five hours before UTC at all times.
std::string Zone(std::string_view offset = "+0500", std::string_view more = "") {
    return fmt::format(
        "BEGIN:VTIMEZONE\nTZID:Office\nBEGIN:STANDARD\nDTSTART:19700101T000000\n{}"
        "TZOFFSETFROM:+0500\nTZOFFSETTO:{}\nEND:STANDARD\nEND:VTIMEZONE\n",
        more, offset);
}

class ToDos : public testing::Test {
protected:
    ToDos() {
        SetSystemTimeZone("Asia/Tokyo");
        CTime::SetClock(1'750'000'000);  // 2025-06-15 15:06:40 UTC
    }
    ~ToDos() override {
        CTime::SetClock(-1);
        SetSystemTimeZone("");
    }

    static std::string Version(Dialect dialect) { return dialect == kOld ? "1.0" : "2.0"; }

    // The to-do after the edit, as a file of that dialect has it.
    static std::string Written(const std::string& calendar, Dialect dialect = Dialect::Calendar20,
                               const Edit& edit = {}) {
        Tables tables(calendar);
        const auto record = tables.ToDo();
        if (edit) edit(*record);
        return Plain(ToDoWriter(tables.toDos, dialect).Write(*record).toDo);
    }

    // A calendar with all to-dos of the tables, which must read as they do.
    static std::string Exported(Tables& tables, Dialect dialect = Dialect::Calendar20) {
        ToDoWriter writer(tables.toDos, dialect);
        CalendarText calendar(dialect);
        for (const auto& record : All(tables.toDos)) calendar.Add(writer.Write(*record));
        EXPECT_EQ(DescribeAll(calendar.Text()), DescribeAll(tables)) << calendar.Text();
        return calendar.Text();
    }

    static std::ptrdiff_t CountOf(std::string_view text, std::string_view part) {
        std::ptrdiff_t count = 0;
        for (std::size_t at = 0; (at = text.find(part, at)) != text.npos; ++at) ++count;
        return count;
    }

    const std::string inOffice = ToDo("SUMMARY:a\nDUE;TZID=Office:20250630T170000");
};

TEST_F(ToDos, TextsFillTheFields) {
    struct {
        const char *why, *lines, *want, *version = "2.0";
    } const rows[] = {
        {"texts", "SUMMARY:a\\, b\nDESCRIPTION:c\\nd", "a, b | note: c\nd"},
        {"no summary", "DESCRIPTION:c\\nd", "c | note: c\nd"},
        {"an empty summary", "SUMMARY:\nDESCRIPTION:c", " | note: c"},
        {"the alarm's text stays out", "BEGIN:VALARM\nSUMMARY:b\nEND:VALARM\nSUMMARY:a", "a"},
        {"an old calendar",
         "SUMMARY;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9=\n=3D\nSTATUS:NEEDS "
         "ACTION\nPRIORITY:1\nDUE:2025-06-30T17:00:00Z\nCATEGORIES:Work;Home",
         "é= | priority: 1 | due: 2025-07-01T02:00:00 | category: Work", "1.0"},
    };
    for (const auto& row : rows) {
        EXPECT_THAT(DescribeAll(Calendar(ToDo(row.lines), row.version)), ElementsAre(row.want))
            << row.why;
    }
}

TEST_F(ToDos, DatesPrioritiesAndMarksAreTakenAsFarAsARecordHasThem) {
    const std::tuple<const char*, const char*, std::string> rows[] = {
        {"priority 2", "PRIORITY:2", " | priority: 2"},
        {"priority 7", "PRIORITY:7", " | priority: 4"},
        {"priority 9", "PRIORITY:9", " | priority: 5"},
        {"no priority", "PRIORITY:0", ""},
        {"a day", "DUE;VALUE=DATE:20250630", " | due: 2025-06-30T23:59:59"},
        {"a local time", "DUE:20250630T170000", " | due: 2025-06-30T17:00:00"},
        {"a time in UTC", "DUE:20250630T170000Z", " | due: 2025-07-01T02:00:00"},
        {"a zone of the system", "DUE;TZID=Europe/Berlin:20250630T170000",
         " | due: 2025-07-01T00:00:00"},
        {"an unknown zone", "DUE;TZID=Nowhere:20250630T170000", " | due: 2025-06-30T17:00:00"},
        {"a start and a duration", "DTSTART:20250630T170000Z\nDURATION:P1DT1H",
         " | due: 2025-07-02T03:00:00"},
        {"a start alone", "DTSTART:20250630T170000Z", ""},
        {"a date beyond the last", "DUE:20380120T000000Z", ""},
        {"a date before the first", "DUE:19690101T000000Z", ""},
        {"a day that isn't there", "DUE:20250231T000000Z", ""},
        {"no date", "DUE:soon", ""},
        {"completed by status", "STATUS:completed", " | completed"},
        {"completed by percentage", "PERCENT-COMPLETE:100", " | completed"},
        {"completed by date", "COMPLETED:20250601T000000Z",
         " | completed | completed on: 2025-06-01T09:00:00"},
        {"open by status", "STATUS:IN-PROCESS\nCOMPLETED:20250601T000000Z", ""},
        {"cancelled", "STATUS:CANCELLED", ""},
        {"marks", "CLASS:PRIVATE\nCATEGORIES:Work,Home\nX-ORVO-ARCHIVED:1",
         " | category: Work | private | archived"},
    };
    for (const auto& [why, lines, want] : rows) {
        EXPECT_THAT(DescribeAll(Calendar(ToDo(std::string("SUMMARY:a\n") + lines))),
                    ElementsAre("a" + want))
            << why;
    }
}

TEST_F(ToDos, ATimeIsShownFromTheCalendarsOwnZoneWhereverThatStands) {
    for (const std::string& lines : {Zone() + inOffice, inOffice + Zone()}) {
        EXPECT_THAT(DescribeAll(Calendar(lines)), ElementsAre("a | due: 2025-06-30T21:00:00"));
    }
}

TEST_F(ToDos, AnUneditedToDoIsWrittenAsItCame) {
    const std::string toDo = ToDo(
        "DUE;TZID=Office:20250630T170000\nSUMMARY:a\n b\nPRIORITY:2\nSTATUS:NEEDS-ACTION\n"
        "COMPLETED:20250601T000000Z\nX-A:1\nBEGIN:VALARM\nEND:VALARM");
    EXPECT_EQ(Written(Calendar(Zone() + toDo)), toDo);
    EXPECT_EQ(Written(Calendar(toDo, "1.0"), kOld), toDo);
}

TEST_F(ToDos, AnEditChangesItsLinesAlone) {
    struct Row {
        const char *why, *lines;
        Edit edit;
        const char* want;
        Dialect dialect = Dialect::Calendar20;
    };
    const auto text = [](const char* wanted) {
        return [=](CToDoRecord& r) { r.SetDescriptionUtf8(wanted); };
    };
    const auto priority = [](int wanted) { return [=](CToDoRecord& r) { r.SetPriority(wanted); }; };
    const auto due = [](int day, int hour) {
        return [=](CToDoRecord& r) { r.SetDueDate(MomentOfCivil({2025, 7, day, hour, 0, 0})); };
    };
    const auto complete = [](CToDoRecord& r) { r.SetCompleted(1, 1); };
    const auto reopen = [](CToDoRecord& r) { r.SetCompleted(0, 0); };
    const auto parent = [](const char* uid) {
        return [=](CToDoRecord& r) {
            EditToDoText(r, [=](ToDoText& toDo) { return WithParent(toDo, uid); });
        };
    };
    const auto percent = [](CToDoRecord& r) {
        EditToDoText(r, [](ToDoText& toDo) { return WithPercent(toDo, 0); });
    };
    const Row rows[] = {
        {"another whole", "UID:1\nRELATED-TO;X-A=1:a\nRELATED-TO;RELTYPE=CHILD:b\nRELATED-TO:c",
         parent("d,e"), "UID:1\nRELATED-TO;X-A=1:d\\,e\nRELATED-TO;RELTYPE=CHILD:b"},
        {"none", "UID:1\nRELATED-TO;RELTYPE=parent:a", parent(""), "UID:1"},
        {"a first one", "BEGIN:VALARM\nRELATED-TO:a\nEND:VALARM\nUID:1", parent("b"),
         "BEGIN:VALARM\nRELATED-TO:a\nEND:VALARM\nUID:1\nRELATED-TO:b"},
        {"no percent", "UID:1\nPERCENT-COMPLETE:40", percent, "UID:1"},
        {"description", "SUMMARY;LANGUAGE=de:a\nUID:1", text("b;é"),
         "SUMMARY;LANGUAGE=de:b\\;é\nUID:1"},
        {"description in an old one", "SUMMARY:a", text("é"),
         "SUMMARY;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9", kOld},
        {"description that was the note's", "DESCRIPTION:a", text("b"), "DESCRIPTION:a\nSUMMARY:b"},
        {"a note whose first line was the description", "DESCRIPTION:a",
         [](CToDoRecord& r) { r.SetNoteUtf8("c"); }, "DESCRIPTION:c\nSUMMARY:a"},
        {"priority", "PRIORITY:2\nSUMMARY:a", priority(4), "PRIORITY:7\nSUMMARY:a"},
        {"a priority that stays", "PRIORITY:6\nSUMMARY:a", priority(3), "PRIORITY:6\nSUMMARY:a"},
        {"a due day becomes a time", "DUE;VALUE=DATE:20250630", due(1, 12), "DUE:20250701T120000"},
        {"a due time becomes a day", "DUE;TZID=Office:20250630T170000", due(1, 0),
         "DUE;VALUE=DATE:20250701"},
        {"a due time keeps its zone", "DUE;TZID=Europe/Berlin:20250630T170000", due(1, 12),
         "DUE;TZID=Europe/Berlin:20250701T050000"},
        {"a due time stays in UTC", "DUE:20250630T170000Z", due(1, 12), "DUE:20250701T030000Z"},
        {"a due time in an old one", "DUE:20250630T170000", due(1, 0), "DUE:20250701T000000", kOld},
        {"a duration gives way", "DTSTART:20250630T170000Z\nDURATION:P1D", due(2, 12),
         "DTSTART:20250630T170000Z\nDUE:20250702T030000Z"},
        {"no due date", "DUE:20250630T170000Z\nUID:1",
         [](CToDoRecord& r) { r.SetDueDate(maxDate()); }, "UID:1"},
        {"completed", "STATUS:NEEDS-ACTION\nPERCENT-COMPLETE:20", complete,
         "STATUS:COMPLETED\nPERCENT-COMPLETE:100\nCOMPLETED:20250615T150640Z"},
        {"completed in an old one", "STATUS:NEEDS ACTION", complete,
         "STATUS:COMPLETED\nCOMPLETED:20250615T150640Z", kOld},
        {"open again", "COMPLETED:20250601T000000Z\nPERCENT-COMPLETE:100\nUID:1", reopen,
         "UID:1\nSTATUS:NEEDS-ACTION"},
        {"marks", "SUMMARY:a",
         [](CToDoRecord& r) {
             r.SetPrivate(1);
             r.SetArchived(1);
         },
         "SUMMARY:a\nCLASS:PRIVATE\nX-ORVO-ARCHIVED:1"},
    };
    for (const Row& row : rows) {
        std::string stamps = "\nLAST-MODIFIED:20250615T150640Z";
        if (row.dialect != kOld) stamps.insert(0, "\nDTSTAMP:20250615T150640Z");
        if (std::string_view(row.want) == row.lines) stamps.clear();
        EXPECT_EQ(Written(Calendar(ToDo(row.lines), Version(row.dialect)), row.dialect, row.edit),
                  ToDo(row.want + stamps))
            << row.why;
    }
}

TEST_F(ToDos, AToDoOfTheOtherFormatIsWrittenFreshWithItsUidAndItsOwnLines) {
    const std::string old = ToDo(
        "UID:7\nX-A;QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9\nSUMMARY:a\nDUE:20250630T170000Z\n"
        "AALARM:x\nDCREATED:20250101T000000Z\nLOCATION:a; b\nRESOURCES:c;d\nPRIORITY:2");
    EXPECT_EQ(Written(Calendar(old, "1.0")),
              ToDo("UID:7\nX-A:é\nCREATED:20250101T000000Z\nLOCATION:a\\; b\nRESOURCES:c,d\n"
                   "PRIORITY:2\nSUMMARY:a\nDUE:20250701T020000\nDTSTAMP:20250615T150640Z\n"
                   "LAST-MODIFIED:20250615T150640Z"));
    const std::string now = ToDo(
        "UID:8\nX-A:é\nSUMMARY:b\nPRIORITY:8\nURL:http://a/,b\nCOMMENT:c\\, d\n"
        "DTSTART;TZID=Europe/Berlin:20250630T170000\nATTACH;ENCODING=BASE64;VALUE=BINARY:AAAA");
    EXPECT_EQ(Written(Calendar(now), kOld),
              ToDo("UID:8\nX-A;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9\nPRIORITY:8\n"
                   "URL:http://a/,b\nCOMMENT:c, d\nDTSTART:20250630T150000Z\n"
                   "ATTACH;ENCODING=BASE64:AAAA\nSUMMARY:b\nLAST-MODIFIED:20250615T150640Z"));
    EXPECT_THAT(
        Written(Calendar(ToDo("PRIORITY:8")), kOld, [](CToDoRecord& r) { r.SetPriority(1); }),
        HasSubstr("\nPRIORITY:1\n"));
}

TEST_F(ToDos, ARuleIsWrittenInTheOtherFormatAsFarAsThatHasOne) {
    const std::string due = "DUE:20250627T170000\nSUMMARY:a\n";
    struct {
        const char *lines, *want;
        Dialect dialect;
    } const rows[] = {
        {"RRULE:W1 MO FR #2\nEXDATE:20250704T170000;20250707T170000",
         "RRULE:FREQ=WEEKLY;COUNT=4;BYDAY=MO,FR\nEXDATE:20250704T170000,20250707T170000",
         Dialect::Calendar20},
        {"RRULE:FREQ=WEEKLY;COUNT=3;BYDAY=MO,FR", "RRULE:W1 MO FR 20250704T080000Z", kOld},
        {"RRULE:FREQ=DAILY;BYSETPOS=1", "SUMMARY:a", kOld},
    };
    for (const auto& row : rows) {
        const bool toOld = row.dialect == kOld;
        const std::string written =
            Written(Calendar(ToDo(due + row.lines), toOld ? "2.0" : "1.0"), row.dialect);
        EXPECT_NE(written.find(row.want), std::string::npos) << written;
        EXPECT_EQ(CountOf(written, "RRULE"), row.want[0] == 'R' ? 1 : 0) << written;
    }
}

TEST_F(ToDos, ARecordKeepsTheUidOfItsFirstExportAndNoOtherStoreGivesIt) {
    const auto written = [](Tables& tables, Dialect dialect = Dialect::Calendar20) {
        return Plain(ToDoWriter(tables.toDos, dialect).Write(*tables.ToDo()).toDo);
    };
    const auto uidOf = [](std::string_view toDo) {
        const std::size_t at = toDo.find("\nUID:");
        return toDo.substr(at, toDo.find('\n', at + 1) - at);
    };
    Tables tables;
    Tables others;
    for (Tables* each : {&tables, &others}) {
        CToDoRecord record(each->toDos);
        ASSERT_EQ(each->toDos.Add(record), 0);
    }
    const std::string first = written(tables);
    tables.ToDo()->SetDescriptionUtf8("b");
    const std::string second = written(tables);

    EXPECT_THAT(second, HasSubstr(uidOf(first)));
    EXPECT_THAT(written(tables, kOld), HasSubstr(uidOf(first)));
    EXPECT_THAT(second, HasSubstr("\nSUMMARY:b\n"));
    for (const char* const stamp : {"CREATED", "DTSTAMP", "LAST-MODIFIED"}) {
        EXPECT_THAT(second, HasSubstr(fmt::format("\n{}:20250615T150640Z\n", stamp)));
    }
    EXPECT_NE(uidOf(written(others)), uidOf(first));
}

TEST_F(ToDos, TheZoneOfAnOldCalendarIsThatOfItsTimesAndIsWrittenWithThem) {
    const std::string toDo = ToDo("SUMMARY:a\nDUE:20250630T170000");
    for (const std::string& lines : {"TZ:-03:30\n" + toDo, toDo + "TZ:-0330\n"}) {
        EXPECT_THAT(DescribeAll(Calendar(lines, "1.0")),
                    ElementsAre("a | due: 2025-07-01T05:30:00"));
    }

    Tables tables(Calendar("TZ:-03:30\n" + toDo + toDo, "1.0"));
    tables.Import(Calendar(toDo, "1.0"));
    tables.ToDo()->SetDueDate(MomentOfCivil({2025, 7, 2, 5, 30, 0}));
    const std::string text = Exported(tables, kOld);
    EXPECT_THAT(text, HasSubstr("DUE:20250701T170000\r\n"));
    EXPECT_EQ(CountOf(text, "TZ:-03:30"), 1);
}

TEST_F(ToDos, AnyRecordReadsTheSameFromItsFreshToDo) {
    constexpr std::string_view pieces[] = {"a", "é", ";", ",", "\\", "\n", ":", " ", "=", "\t"};
    std::mt19937 random(9);
    for (int round = 0; round < 600; ++round) {
        Tables tables;
        CToDoRecord record(tables.toDos);
        record.SetDescriptionUtf8(AnyText(pieces, 8, random));
        record.SetNoteUtf8(AnyText(pieces, 8, random));
        record.SetPriority(1 + random() % 5);
        record.SetPrivate(random() % 2);
        if (random() % 2) {
            const long day = static_cast<long>(random() % 20000);
            const bool atEnd = random() % 2 == 0;
            record.SetDueDate(day * 86400 + (atEnd ? 14 * 3600 + 3600 - 1 : 12345));
        }
        if (random() % 2) record.SetCompleted(1, random() % 2);
        ASSERT_EQ(tables.toDos.Add(record), 0);
        Exported(tables, round % 2 == 0 ? kOld : Dialect::Calendar20);
        ASSERT_FALSE(HasFailure());
    }
}

TEST_F(ToDos, ZonesStandOnceInAFileAndDifferentOnesOfOneNameApart) {
    Tables tables(Calendar(Zone() + inOffice + inOffice));
    tables.Import(Calendar(Zone("+0100") + inOffice));
    EXPECT_EQ(CountOf(Exported(tables), "BEGIN:VTIMEZONE"), 2);
}

TEST_F(ToDos, ToDosOfACalendarShareWhatStandsBeforeThem) {
    const std::string opening = "BEGIN:VCALENDAR\nVERSION:1.0\n";
    const std::string end = "END:VCALENDAR\n";
    struct {
        const char* why;
        std::string lines, parts;  // "|" divides the parts; all but the last are shared
        const char* version = "2.0";
    } const rows[] = {
        {"iCalendar", Zone() + inOffice + inOffice, Zone() + "|" + inOffice},
        {"the zone last", inOffice + inOffice + Zone(), Zone() + "|" + inOffice},
        {"vCalendar", Zone() + inOffice + inOffice, opening + "|" + Zone() + "|" + inOffice + end,
         "1.0"},
        {"vCalendar with a zone of all", "TZ:+01\n" + inOffice + inOffice,
         opening + "TZ:+01\n|" + inOffice + end, "1.0"},
    };
    for (const auto& row : rows) {
        Tables tables(Calendar(row.lines, row.version));
        std::set<const std::string*> places;
        std::vector<SharedText> kept;  // so that no place is used anew
        for (const auto& record : All(tables.toDos)) {
            std::vector<SharedText> shared;
            std::string rest;
            ASSERT_EQ(record->GetSourceParts(shared, rest), 0);
            std::string parts;
            for (const SharedText& text : shared) {
                places.insert(&text.Text());
                parts += Plain(kept.emplace_back(text).Text()) + "|";
            }
            EXPECT_EQ(parts + Plain(rest), row.parts) << row.why;
        }
        EXPECT_EQ(std::ssize(places), CountOf(row.parts, "|")) << row.why;
    }
}

// Zones whose changes would run into the billions, or that have no end, are not worked out.
TEST_F(ToDos, AZoneOfAnotherKindIsPassedOver) {
    for (const char* rule :
         {"FREQ=SECONDLY", "FREQ=YEARLY;BYSECOND=1,2,3", "FREQ=YEARLY;INTERVAL=0"}) {
        const std::string zone = Zone("+0500", fmt::format("RRULE:{}\n", rule));
        EXPECT_THAT(DescribeAll(Calendar(zone + inOffice)),
                    ElementsAre("a | due: 2025-06-30T17:00:00"));
    }
}

}  // namespace
}  // namespace orvo
