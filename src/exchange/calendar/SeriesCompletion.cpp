// What becomes of the to-dos of a table that repeat when they are completed.
// SPDX-License-Identifier: MIT
#include <memory>

#include <exchange/calendar/Recurrence.h>
#include <exchange/calendar/SeriesCompletion.h>
#include <exchange/calendar/ToDoText.h>

namespace orvo {
namespace {

// Adds the to-do that is done, in the category of its series.
long AddCompleted(CToDoTable& table, const CToDoRecord& series, ToDoText text, long date) {
    EditLines(text, [](const LineList&, LineEdits& edits) { edits.Add("UID").value = NewUid(); });
    CToDoRecord done(table);
    int category = kNoCategory;
    series.GetCategoryId(category);
    long status = done.SetCategoryId(category);
    if (status == 0) status = WriteToDoText(done, text);
    if (status == 0) status = done.CompleteOn(date);
    return status == 0 ? table.Add(done) : status;
}

class SeriesByDates : public ToDoSeries {
public:
    explicit SeriesByDates(CToDoTable& table) : m_table(table) {}

    // Of what others have changed since the record was read nothing is lost.
    long CompleteOnce(CToDoRecord& record, long completionDate, bool& isOver) override {
        StoreTransaction transaction(m_table.GetEngine());
        long status = static_cast<long>(transaction.Status());
        CToDoRecord present(m_table);
        if (status == 0) status = m_table.Find(record.GetId(), present);
        ToDoText series;
        if (status == 0) status = ReadToDoText(present, series);
        if (status != 0) return status;
        const std::optional<ToDoText> next = MovedToNext(series);
        isOver = !next || present.IsCompleted() != 0;
        if (isOver) return 0;
        status = AddCompleted(m_table, present, CompletedCopy(series), completionDate);
        if (status == 0) status = WriteToDoText(present, *next);
        if (status == 0) status = static_cast<long>(transaction.Commit());
        if (status == 0) record.TakeOver(present);
        return status;
    }

private:
    CToDoTable& m_table;
};

}  // namespace

void CompleteSeriesByDates(CToDoTable& table) {
    table.SetSeries(std::make_shared<SeriesByDates>(table));
}

}  // namespace orvo
