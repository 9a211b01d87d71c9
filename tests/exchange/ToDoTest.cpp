// To-dos of calendars become records, and become to-dos again.
// SPDX-License-Identifier: MIT
#include <functional>
#include <random>

#include <gmock/gmock.h>

#include <exchange/calendar/ToDoWriter.h>
#include <platform/time/CTime.h>
#include <platform/time/TimeZone.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Strings = std::vector<std::string>;

constexpr std::string_view kZone =
    "BEGIN:VTIMEZONE\nTZID:Office\nBEGIN:STANDARD\nDTSTART:19700101T000000\nTZOFFSETFROM:+0500\n"
    "TZOFFSETTO:+0500\nEND:STANDARD\nEND:VTIMEZONE\n";

class ToDos : public testing::Test {
protected:
    void SetUp() override {
        SetSystemTimeZone("Asia/Tokyo");
        CTime::SetClock(1'750'000'000);  // 2025-06-15 15:06:40 UTC
    }
    void TearDown() override {
        CTime::SetClock(-1);
        SetSystemTimeZone("");
    }

    static std::string ToDo(std::string_view lines) {
        return "BEGIN:VTODO\n" + std::string(lines) + "END:VTODO\n";
    }
    static Strings Read(std::string_view version, std::string_view lines) {
        Tables tables;
        tables.Import(Calendar(version, lines));
        CToDoRecord record(tables.toDos);
        if (CToDoIterator(tables.toDos).FindFirst(record) != 0) return {"nothing"};
        return Describe(record);
    }

    // The lines of the to-do after the edit, as a file of that dialect has them.
    static std::string Edit(std::string_view version, std::string_view lines,
                            const std::function<void(CToDoRecord&)>& edit, Dialect dialect) {
        Tables tables;
        tables.Import(Calendar(version, lines));
        CToDoRecord record(tables.toDos);
        EXPECT_EQ(CToDoIterator(tables.toDos).FindFirst(record), 0);
        edit(record);
        std::string text = ToDoWriter(tables.toDos, dialect).Write(record).toDo;
        std::erase(text, '\r');
        return text;
    }
};

TEST_F(ToDos, PropertiesFillTheFields) {
    struct Row {
        const char* why;
        const char* version;
        const char* lines;
        Strings want;
    };
    const Row rows[] = {
        {"texts",
         "2.0",
         "SUMMARY:a\\, b\nDESCRIPTION:c\\nd\n",
         {"description: a, b", "note: c\nd"}},
        {"no summary", "2.0", "DESCRIPTION:c\\nd\n", {"description: c", "note: c\nd"}},
        {"an empty summary", "2.0", "SUMMARY:\nDESCRIPTION:c\n", {"description: ", "note: c"}},
        {"priority 2", "2.0", "SUMMARY:a\nPRIORITY:2\n", {"description: a", "priority: 2"}},
        {"priority 7", "2.0", "SUMMARY:a\nPRIORITY:7\n", {"description: a", "priority: 4"}},
        {"priority 9", "2.0", "SUMMARY:a\nPRIORITY:9\n", {"description: a", "priority: 5"}},
        {"no priority", "2.0", "SUMMARY:a\nPRIORITY:0\n", {"description: a"}},
        {"a day",
         "2.0",
         "SUMMARY:a\nDUE;VALUE=DATE:20250630\n",
         {"description: a", "due: 2025-06-30T23:59:59"}},
        {"a local time",
         "2.0",
         "SUMMARY:a\nDUE:20250630T170000\n",
         {"description: a", "due: 2025-06-30T17:00:00"}},
        {"a time in UTC",
         "2.0",
         "SUMMARY:a\nDUE:20250630T170000Z\n",
         {"description: a", "due: 2025-07-01T02:00:00"}},
        {"a zone of the system",
         "2.0",
         "SUMMARY:a\nDUE;TZID=Europe/Berlin:20250630T170000\n",
         {"description: a", "due: 2025-07-01T00:00:00"}},
        {"an unknown zone",
         "2.0",
         "SUMMARY:a\nDUE;TZID=Nowhere:20250630T170000\n",
         {"description: a", "due: 2025-06-30T17:00:00"}},
        {"a start and a duration",
         "2.0",
         "SUMMARY:a\nDTSTART:20250630T170000Z\nDURATION:P1DT1H\n",
         {"description: a", "due: 2025-07-02T03:00:00"}},
        {"a start alone", "2.0", "SUMMARY:a\nDTSTART:20250630T170000Z\n", {"description: a"}},
        {"a date beyond the last", "2.0", "SUMMARY:a\nDUE:20380120T000000Z\n", {"description: a"}},
        {"a date before the first", "2.0", "SUMMARY:a\nDUE:19690101T000000Z\n", {"description: a"}},
        {"a day that isn't there", "2.0", "SUMMARY:a\nDUE:20250231T000000Z\n", {"description: a"}},
        {"no date", "2.0", "SUMMARY:a\nDUE:soon\n", {"description: a"}},
        {"completed by status",
         "2.0",
         "SUMMARY:a\nSTATUS:completed\n",
         {"description: a", "completed"}},
        {"completed by percentage",
         "2.0",
         "SUMMARY:a\nPERCENT-COMPLETE:100\n",
         {"description: a", "completed"}},
        {"completed by date",
         "2.0",
         "SUMMARY:a\nCOMPLETED:20250601T000000Z\n",
         {"description: a", "completed", "completed on: 2025-06-01T09:00:00"}},
        {"open by status",
         "2.0",
         "SUMMARY:a\nSTATUS:IN-PROCESS\nCOMPLETED:20250601T000000Z\n",
         {"description: a"}},
        {"cancelled", "2.0", "SUMMARY:a\nSTATUS:CANCELLED\n", {"description: a"}},
        {"marks",
         "2.0",
         "SUMMARY:a\nCLASS:PRIVATE\nCATEGORIES:Work,Home\nX-ORVO-ARCHIVED:1\n",
         {"description: a", "category: Work", "private", "archived"}},
        {"the alarm's text stays out",
         "2.0",
         "BEGIN:VALARM\nSUMMARY:b\nEND:VALARM\nSUMMARY:a\n",
         {"description: a"}},
        {"an old calendar",
         "1.0",
         "SUMMARY;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9=\n=3D\nSTATUS:NEEDS "
         "ACTION\nPRIORITY:1\n"
         "DUE:2025-06-30T17:00:00Z\nCATEGORIES:Work;Home\n",
         {"description: é=", "priority: 1", "due: 2025-07-01T02:00:00", "category: Work"}},
    };
    for (const Row& row : rows) EXPECT_EQ(Read(row.version, ToDo(row.lines)), row.want) << row.why;
}

TEST_F(ToDos, ATimeIsShownFromTheCalendarsOwnZoneWhereverThatStands) {
    const std::string toDo = ToDo("SUMMARY:a\nDUE;TZID=Office:20250630T170000\n");
    const Strings want{"description: a", "due: 2025-06-30T21:00:00"};

    EXPECT_EQ(Read("2.0", std::string(kZone) + toDo), want);
    EXPECT_EQ(Read("2.0", toDo + std::string(kZone)), want);
}

TEST_F(ToDos, AnUneditedToDoIsWrittenAsItCame) {
    const std::string toDo = ToDo(
        "DUE;TZID=Office:20250630T170000\nSUMMARY:a\n b\nPRIORITY:2\nSTATUS:NEEDS-ACTION\n"
        "COMPLETED:20250601T000000Z\nX-A:1\nBEGIN:VALARM\nEND:VALARM\n");
    const auto none = [](CToDoRecord&) {};

    EXPECT_EQ(Edit("2.0", std::string(kZone) + toDo, none, Dialect::Calendar20), toDo);
    EXPECT_EQ(Edit("1.0", toDo, none, Dialect::Calendar10), toDo);
}

TEST_F(ToDos, AnEditChangesItsLinesAlone) {
    struct Row {
        const char* why;
        Dialect dialect;
        const char* lines;
        std::function<void(CToDoRecord&)> edit;
        const char* want;
    };
    const auto due = [](int day, int hour) {
        return [=](CToDoRecord& r) { r.SetDueDate(MomentOfCivil({2025, 7, day, hour, 0, 0})); };
    };
    const auto complete = [](CToDoRecord& r) { r.SetCompleted(1, 1); };
    const auto reopen = [](CToDoRecord& r) { r.SetCompleted(0, 0); };
    const Dialect now = Dialect::Calendar20;
    const Dialect old = Dialect::Calendar10;
    const Row rows[] = {
        {"description", now, "SUMMARY;LANGUAGE=de:a\nUID:1\n",
         [](CToDoRecord& r) { r.SetDescriptionUtf8("b;é"); }, "SUMMARY;LANGUAGE=de:b\\;é\nUID:1\n"},
        {"description in an old one", old, "SUMMARY:a\n",
         [](CToDoRecord& r) { r.SetDescriptionUtf8("é"); },
         "SUMMARY;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9\n"},
        {"description that was the note's", now, "DESCRIPTION:a\n",
         [](CToDoRecord& r) { r.SetDescriptionUtf8("b"); }, "DESCRIPTION:a\nSUMMARY:b\n"},
        {"a note whose first line was the description", now, "DESCRIPTION:a\n",
         [](CToDoRecord& r) { r.SetNoteUtf8("c"); }, "DESCRIPTION:c\nSUMMARY:a\n"},
        {"priority", now, "PRIORITY:2\nSUMMARY:a\n", [](CToDoRecord& r) { r.SetPriority(4); },
         "PRIORITY:7\nSUMMARY:a\n"},
        {"a priority that stays", now, "PRIORITY:6\nSUMMARY:a\n",
         [](CToDoRecord& r) { r.SetPriority(3); }, "PRIORITY:6\nSUMMARY:a\n"},
        {"a due day becomes a time", now, "DUE;VALUE=DATE:20250630\n", due(1, 12),
         "DUE:20250701T120000\n"},
        {"a due time becomes a day", now, "DUE;TZID=Office:20250630T170000\n", due(1, 0),
         "DUE;VALUE=DATE:20250701\n"},
        {"a due time keeps its zone", now, "DUE;TZID=Europe/Berlin:20250630T170000\n", due(1, 12),
         "DUE;TZID=Europe/Berlin:20250701T050000\n"},
        {"a due time stays in UTC", now, "DUE:20250630T170000Z\n", due(1, 12),
         "DUE:20250701T030000Z\n"},
        {"a due time in an old one", old, "DUE:20250630T170000\n", due(1, 0),
         "DUE:20250701T000000\n"},
        {"a duration gives way", now, "DTSTART:20250630T170000Z\nDURATION:P1D\n", due(2, 12),
         "DTSTART:20250630T170000Z\nDUE:20250702T030000Z\n"},
        {"no due date", now, "DUE:20250630T170000Z\nUID:1\n",
         [](CToDoRecord& r) { r.SetDueDate(maxDate()); }, "UID:1\n"},
        {"completed", now, "STATUS:NEEDS-ACTION\nPERCENT-COMPLETE:20\n", complete,
         "STATUS:COMPLETED\nPERCENT-COMPLETE:100\nCOMPLETED:20250615T150640Z\n"},
        {"completed in an old one", old, "STATUS:NEEDS ACTION\n", complete,
         "STATUS:COMPLETED\nCOMPLETED:20250615T150640Z\n"},
        {"open again", now, "COMPLETED:20250601T000000Z\nPERCENT-COMPLETE:100\nUID:1\n", reopen,
         "UID:1\nSTATUS:NEEDS-ACTION\n"},
        {"marks", now, "SUMMARY:a\n",
         [](CToDoRecord& r) {
             r.SetPrivate(1);
             r.SetArchived(1);
         },
         "SUMMARY:a\nCLASS:PRIVATE\nX-ORVO-ARCHIVED:1\n"},
    };
    for (const Row& row : rows) {
        const char* const version = row.dialect == now ? "2.0" : "1.0";
        EXPECT_EQ(Edit(version, ToDo(row.lines), row.edit, row.dialect), ToDo(row.want)) << row.why;
    }
}

TEST_F(ToDos, AToDoOfTheOtherFormatIsWrittenFreshWithItsUidAndItsOwnLines) {
    const auto none = [](CToDoRecord&) {};
    const std::string old = ToDo(
        "UID:7\nX-A;QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9\nSUMMARY:a\nDUE:20250630T170000Z\nAALARM:"
        "x\nDCREATED:20250101T000000Z\nLOCATION:a; b\nRESOURCES:c;d\nPRIORITY:2\n");

    EXPECT_EQ(Edit("1.0", old, none, Dialect::Calendar20),
              ToDo("DTSTAMP:20250615T150640Z\nUID:7\nX-A:é\nCREATED:20250101T000000Z\n"
                   "LOCATION:a\\; b\nRESOURCES:c,d\nPRIORITY:2\nSUMMARY:a\nDUE:20250701T020000\n"));
    EXPECT_EQ(
        Edit("2.0",
             ToDo("UID:8\nX-A:é\nSUMMARY:b\nPRIORITY:8\nURL:http://a/,b\nCOMMENT:c\\, d\n"
                  "DTSTART;TZID=Europe/Berlin:20250630T170000\nATTACH;ENCODING=BASE64;VALUE="
                  "BINARY:AAAA\n"),
             none, Dialect::Calendar10),
        ToDo("UID:8\nX-A;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9\nPRIORITY:8\nURL:http://a/"
             ",b\nCOMMENT:c, "
             "d\nDTSTART:20250630T150000Z\nATTACH;ENCODING=BASE64:AAAA\nSUMMARY:b\n"));
    EXPECT_THAT(Edit(
                    "2.0", ToDo("PRIORITY:8\n"), [](CToDoRecord& r) { r.SetPriority(1); },
                    Dialect::Calendar10),
                HasSubstr("\nPRIORITY:1\n"));
}

TEST_F(ToDos, ARecordKeepsTheUidOfItsFirstExportAndNoOtherStoreGivesIt) {
    Tables tables;
    CToDoRecord record(tables.toDos);
    record.SetDescriptionUtf8("a");
    ASSERT_EQ(tables.toDos.Add(record), 0);
    const auto uidOf = [](std::string_view toDo) {
        const std::size_t at = toDo.find("UID:");
        return std::string(toDo.substr(at, toDo.find('\r', at) - at));
    };
    const std::string first = ToDoWriter(tables.toDos, Dialect::Calendar20).Write(record).toDo;
    CToDoRecord again(tables.toDos);
    ASSERT_EQ(tables.toDos.Find(record.GetId(), again), 0);
    again.SetDescriptionUtf8("b");

    const std::string second = ToDoWriter(tables.toDos, Dialect::Calendar20).Write(again).toDo;
    const std::string old = ToDoWriter(tables.toDos, Dialect::Calendar10).Write(record).toDo;

    EXPECT_EQ(uidOf(second), uidOf(first));
    EXPECT_EQ(uidOf(old), uidOf(first));
    EXPECT_THAT(second, HasSubstr("\r\nSUMMARY:b\r\n"));
    EXPECT_THAT(second, HasSubstr("\r\nDTSTAMP:20250615T150640Z\r\n"));
    Tables others;
    CToDoRecord other(others.toDos);
    ASSERT_EQ(others.toDos.Add(other), 0);
    EXPECT_NE(uidOf(ToDoWriter(others.toDos, Dialect::Calendar20).Write(other).toDo), uidOf(first));
}

TEST_F(ToDos, TheZoneOfAnOldCalendarIsThatOfItsTimesAndIsWrittenWithThem) {
    const std::string toDo = ToDo("SUMMARY:a\nDUE:20250630T170000\n");
    const Strings want{"description: a", "due: 2025-07-01T05:30:00"};
    EXPECT_EQ(Read("1.0", "TZ:-03:30\n" + toDo), want);
    EXPECT_EQ(Read("1.0", toDo + "TZ:-0330\n"), want);

    Tables tables;
    tables.Import(Calendar("1.0", "TZ:-03:30\n" + toDo + toDo));
    tables.Import(Calendar("1.0", toDo));
    CToDoRecord record(tables.toDos);
    CToDoIterator iterator(tables.toDos);
    ToDoWriter writer(tables.toDos, Dialect::Calendar10);
    CalendarText calendar(Dialect::Calendar10);
    ASSERT_EQ(iterator.FindFirst(record), 0);
    record.SetDueDate(MomentOfCivil({2025, 7, 2, 5, 30, 0}));
    EXPECT_THAT(writer.Write(record).toDo, HasSubstr("DUE:20250701T170000\r\n"));
    for (long s = iterator.FindFirst(record); s == 0; s = iterator.FindNext(record)) {
        calendar.Add(writer.Write(record));
    }
    Tables copies;
    copies.Import(calendar.Text());

    EXPECT_EQ(DescribeAll(copies), DescribeAll(tables));
    EXPECT_EQ(calendar.Text().find("TZ:-03:30"), calendar.Text().rfind("TZ:-03:30"));
}

TEST_F(ToDos, AnyRecordReadsTheSameFromItsFreshToDo) {
    constexpr std::string_view pieces[] = {"a", "é", ";", ",", "\\", "\n", ":", " ", "=", "\t"};
    std::mt19937 random(9);
    for (int round = 0; round < 600; ++round) {
        const bool isOld = round % 2 == 0;
        const Dialect dialect = isOld ? Dialect::Calendar10 : Dialect::Calendar20;
        Tables tables;
        CToDoRecord record(tables.toDos);
        const auto text = [&] {
            std::string made;
            for (unsigned i = random() % 8; i > 0; --i)
                made += pieces[random() % std::size(pieces)];
            return made;
        };
        record.SetDescriptionUtf8(text());
        record.SetNoteUtf8(text());
        record.SetPriority(1 + random() % 5);
        record.SetPrivate(random() % 2);
        if (random() % 2) {
            const long day = static_cast<long>(random() % 20000);
            const bool atEnd = random() % 2 == 0;
            record.SetDueDate(day * 86400 + (atEnd ? 14 * 3600 + 3600 - 1 : 12345));
        }
        if (random() % 2) record.SetCompleted(1, random() % 2);

        CalendarText calendar(dialect);
        calendar.Add(ToDoWriter(tables.toDos, dialect).Write(record));
        Tables copies;
        copies.Import(calendar.Text());

        CToDoRecord copy(copies.toDos);
        ASSERT_EQ(CToDoIterator(copies.toDos).FindFirst(copy), 0);
        ASSERT_EQ(Describe(copy), Describe(record)) << calendar.Text();
    }
}

TEST_F(ToDos, ZonesStandOnceInAFileAndDifferentOnesOfOneNameApart) {
    const std::string zone(kZone);
    std::string other = zone;
    other.replace(other.find("TZOFFSETTO:+0500"), 16, "TZOFFSETTO:+0100");
    const std::string toDo = ToDo("SUMMARY:a\nDUE;TZID=Office:20250630T170000\n");
    Tables tables;
    tables.Import(Calendar("2.0", zone + toDo + toDo));
    tables.Import(Calendar("2.0", other + toDo));
    ToDoWriter writer(tables.toDos, Dialect::Calendar20);
    CalendarText calendar(Dialect::Calendar20);
    CToDoRecord record(tables.toDos);
    CToDoIterator iterator(tables.toDos);
    for (long s = iterator.FindFirst(record); s == 0; s = iterator.FindNext(record)) {
        calendar.Add(writer.Write(record));
    }

    Tables copies;
    copies.Import(calendar.Text());

    EXPECT_EQ(DescribeAll(copies), DescribeAll(tables));
    std::string text = calendar.Text();
    std::size_t zones = 0;
    for (std::size_t at = 0; (at = text.find("BEGIN:VTIMEZONE", at)) != std::string::npos; ++at)
        ++zones;
    EXPECT_EQ(zones, 2u);
}

TEST_F(ToDos, ToDosOfACalendarShareWhatStandsBeforeThem) {
    const std::string toDo = ToDo("SUMMARY:a\nDUE;TZID=Office:20250630T170000\n");
    const std::string zone(kZone);
    const std::string opening = "BEGIN:VCALENDAR\nVERSION:1.0\n";
    struct Row {
        const char* why;
        std::string calendar;
        Strings shared;
        std::string rest;
    };
    const Row rows[] = {
        {"iCalendar", Calendar("2.0", zone + toDo + toDo), {zone}, toDo},
        {"the zone last", Calendar("2.0", toDo + toDo + zone), {zone}, toDo},
        {"vCalendar",
         Calendar("1.0", zone + toDo + toDo),
         {opening, zone},
         toDo + "END:VCALENDAR\n"},
        {"vCalendar with a zone of all",
         Calendar("1.0", "TZ:+01\n" + toDo + toDo),
         {opening + "TZ:+01\n"},
         toDo + "END:VCALENDAR\n"},
    };
    for (const Row& row : rows) {
        Tables tables;
        tables.Import(row.calendar);
        std::vector<SharedText> first;
        for (const std::int64_t id : {1, 2}) {
            CToDoRecord record(tables.toDos);
            ASSERT_EQ(tables.toDos.Find(id, record), 0) << row.why;
            std::vector<SharedText> shared;
            std::string rest;
            ASSERT_EQ(record.GetSourceParts(shared, rest), 0);
            std::erase(rest, '\r');
            EXPECT_EQ(rest, row.rest) << row.why;
            ASSERT_EQ(shared.size(), row.shared.size()) << row.why;
            if (id == 1) first = shared;
            for (std::size_t i = 0; i < shared.size(); ++i) {
                std::string text = shared[i].Text();
                std::erase(text, '\r');
                EXPECT_EQ(text, row.shared[i]) << row.why;
                EXPECT_EQ(&shared[i].Text(), &first[i].Text()) << row.why;
            }
        }
    }
}

// Zones whose changes would run into the billions, or that have no end, are not worked out.
TEST_F(ToDos, AZoneOfAnotherKindIsPassedOver) {
    for (const char* rule :
         {"FREQ=SECONDLY", "FREQ=YEARLY;BYSECOND=1,2,3", "FREQ=YEARLY;INTERVAL=0"}) {
        std::string zone(kZone);
        zone.replace(zone.find("TZOFFSETFROM"), 0, "RRULE:" + std::string(rule) + "\n");
        EXPECT_THAT(Read("2.0", zone + ToDo("SUMMARY:a\nDUE;TZID=Office:20250630T170000\n")),
                    ElementsAre("description: a", "due: 2025-06-30T17:00:00"));
    }
}

}  // namespace
}  // namespace orvo
