// When a to-do begins and how it comes again, in its form.
// SPDX-License-Identifier: MIT
#include <QVBoxLayout>

#include <contracts/Dates.h>
#include <desktop/forms/FormDialog.h>
#include <desktop/forms/FormFields.h>
#include <desktop/forms/RepeatField.h>
#include <desktop/forms/ToDoDates.h>
#include <desktop/texts/Texts.h>
#include <exchange/calendar/SeriesEdits.h>
#include <host/RepeatWords.h>

namespace orvo::desktop {
namespace {

using Saver = RecordSaver<CToDoTable, CToDoRecord>;

long StartOf(const CToDoRecord& record) {
    long date = kMaxDate;
    record.GetStartDate(date);
    return date;
}

// From which it is counted: the due date, as that is what the user sees, else the start.
std::optional<CivilTime> DateOf(const CToDoRecord& record) {
    long date = kMaxDate;
    record.GetDueDate(date);
    if (date == kMaxDate) date = StartOf(record);
    return date == kMaxDate ? std::nullopt : CivilOfMoment(date);
}

// A new record also gets what wasn't changed of its source.
template <class Edit>
long EditText(CToDoRecord& record, const Edit& edit) {
    return EditToDoText(record, [&](ToDoText& text) {
        edit(text);
        return true;
    });
}

DateField* AddStart(Saver& saver, CToDoRecord& record, const CivilTime& today) {
    auto* start = new DateField(Text("St&arts on"), StartOf(record), today, true);
    start->setObjectName("start");
    saver.Add(
        {PlainLabel(Text("St&arts on")), start, [start] { return start->IsChanged(); },
         [start](CToDoRecord& saved) {
             return EditText(saved, [start](ToDoText& text) {
                 if (start->IsChanged()) SetStartDay(text, start->Value());
             });
         },
         [](CToDoRecord& saved) { return DateField::TextOf(StartOf(saved)); },
         [start] { return DateField::TextOf(start->Date()); },
         [start](CToDoRecord& saved, bool keepsMine) { start->Give(StartOf(saved), keepsMine); }});
    return start;
}

RepeatField* AddRepeat(Saver& saver, CToDoRecord& record, const CivilTime& today) {
    auto* repeat =
        new RepeatField(Text("Repea&ts:"), record.Recurrence(), DateOf(record).value_or(today));
    repeat->setObjectName("repeat");
    saver.Add({PlainLabel(Text("Repea&ts:")), repeat, [repeat] { return repeat->IsChanged(); },
               [repeat](CToDoRecord& saved) {
                   return EditText(saved, [repeat](ToDoText& text) {
                       if (repeat->IsChanged()) SetRule(text, repeat->Rule());
                   });
               },
               [](CToDoRecord& saved) {
                   return FromUtf8(RepeatWords(saved.Recurrence(), DateOf(saved)));
               },
               [repeat] { return repeat->Words(); },
               [repeat](CToDoRecord& saved, bool keepsMine) {
                   repeat->Give(saved.Recurrence(), keepsMine);
               }});
    return repeat;
}

}  // namespace

void AddToDoDates(Saver& saver, CToDoRecord& record, DateField& due, const CivilTime& today,
                  QGridLayout& grid, int row) {
    DateField* start = AddStart(saver, record, today);
    RepeatField* repeat = AddRepeat(saver, record, today);
    DateField* dueField = &due;
    const auto follow = [=] {
        if (repeat->Repeats() && !dueField->HasDate() && !start->HasDate()) {
            dueField->SetHasDate(true);
            dueField->SetRemark(Text("what repeats needs a date"));
        }
        const std::optional<CivilTime> date =
            dueField->HasDate() ? dueField->Value() : start->Value();
        if (date) repeat->SetDate(*date);
        if (auto* form = dynamic_cast<FormDialog*>(repeat->window())) form->Grow();
    };
    due.SetListener(follow);
    start->SetListener(follow);
    repeat->SetListener(follow);
    auto* column = new QVBoxLayout;
    column->addWidget(start);
    column->addWidget(&due);
    column->addWidget(repeat);
    grid.addLayout(column, row, 1);
}

}  // namespace orvo::desktop
