// Tests of to-dos that repeat: what completing them does, and the dates that differ.
// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <exchange/calendar/SeriesCompletion.h>
#include <exchange/calendar/ToDoWriter.h>
#include <platform/time/TimeZone.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

constexpr const char* kSeries =
    "UID:s\nDTSTAMP:20260101T000000Z\nSUMMARY:Water\nCATEGORIES:Garden\nX-KEPT:1\n"
    "DUE;VALUE=DATE:20260306\nRRULE:FREQ=WEEKLY;COUNT=3";
constexpr const char* kOtherDate =
    "UID:s\nRECURRENCE-ID;VALUE=DATE:20260313\nSUMMARY:Water twice\nDUE;VALUE=DATE:20260314";

class SeriesTest : public testing::Test {
protected:
    SeriesTest() {
        SetSystemTimeZone("Europe/Berlin");
        CompleteSeriesByDates(tables.toDos);
    }
    ~SeriesTest() override { SetSystemTimeZone(""); }

    std::string Counts(const std::string& lines) {
        const ImportReport report = tables.Import(Calendar(lines));
        return fmt::format("{} {} {} {}", report.toDos, report.updated, report.unchanged,
                           report.skipped.size());
    }

    static std::string Exported(Tables& from) {
        ToDoWriter writer(from.toDos, Dialect::Calendar20);
        CalendarText calendar(Dialect::Calendar20);
        for (const auto& record : All(from.toDos)) calendar.Add(writer.Write(*record));
        return calendar.Text();
    }

    Tables tables;
};

TEST_F(SeriesTest, CompletedItMovesAndWhatIsDoneIsAToDoOfItsOwn) {
    tables.Import(Calendar(ToDo(kSeries)));
    const auto series = tables.ToDo();
    ASSERT_EQ(series->SetCompleted(1, 0), 0);
    EXPECT_EQ(series->IsCompleted(), 0);
    ASSERT_EQ(tables.ToDo()->SetCompleted(1, 0), 0);
    EXPECT_THAT(DescribeAll(tables),
                ElementsAre("Water | due: 2026-03-20T23:59:59 | category: Garden",
                            "Water | due: 2026-03-06T23:59:59 | completed | category: Garden",
                            "Water | due: 2026-03-13T23:59:59 | completed | category: Garden"));
    const std::string text = Exported(tables);
    EXPECT_THAT(text, HasSubstr("RRULE:FREQ=WEEKLY;COUNT=1\r\n"));
    EXPECT_EQ(DescribeAll(text), DescribeAll(tables));
    EXPECT_EQ(tables.Import(text).unchanged, 3U);

    EXPECT_EQ(tables.ToDo()->SetCompleted(1, 0), 0) << "the last one";
    EXPECT_EQ(tables.ToDo()->IsCompleted(), 1);
    EXPECT_EQ(tables.toDos.GetCount(), 3);
}

TEST_F(SeriesTest, WhoCompletesItElsewhereMeansThisTime) {
    tables.Import(Calendar(ToDo(kSeries)));
    const std::string done =
        ToDo(std::string(kSeries) + "\nLAST-MODIFIED:29990101T000000Z\nSTATUS:COMPLETED");
    EXPECT_EQ(Counts(done), "0 1 0 0");
    EXPECT_THAT(DescribeAll(tables),
                ElementsAre("Water | due: 2026-03-13T23:59:59 | category: Garden",
                            "Water | due: 2026-03-06T23:59:59 | completed | category: Garden"));
}

TEST_F(SeriesTest, DatesThatDifferBelongToIt) {
    const std::string both = ToDo(kOtherDate) + ToDo(kSeries);
    EXPECT_EQ(Counts(both), "1 0 0 0");
    EXPECT_EQ(Counts(both), "0 0 1 0");
    EXPECT_EQ(Counts(ToDo(kOtherDate)), "0 0 1 0");
    EXPECT_THAT(Plain(Exported(tables)), HasSubstr(ToDo(kSeries) + ToDo(kOtherDate)));
    const std::string other = ToDo("UID:s\nRECURRENCE-ID;VALUE=DATE:20260320\nSUMMARY:No water");
    EXPECT_EQ(Counts(other), "0 1 0 0");
    EXPECT_THAT(Plain(Exported(tables)), HasSubstr(ToDo(kOtherDate) + other));

    tables.ToDo()->SetCompleted(1, 0);
    tables.ToDo()->SetCompleted(1, 0);
    EXPECT_THAT(
        DescribeAll(tables),
        ElementsAre("Water | due: 2026-03-20T23:59:59 | category: Garden",
                    "Water | due: 2026-03-06T23:59:59 | completed | category: Garden",
                    "Water twice | due: 2026-03-14T23:59:59 | completed | category: Garden"));
    EXPECT_EQ(Counts(ToDo("UID:t\nRECURRENCE-ID:20260313T000000\nSUMMARY:Alone")), "1 0 0 0");
}

}  // namespace
}  // namespace orvo
