// Fields that forms of all kinds save alike.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

#include <desktop/forms/FormFields.h>
#include <desktop/forms/RecordSaver.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {

// A choice of a number that `numberOf` reads from a record and `set` puts into it.
template <class Table, class Record, class NumberOf, class Set>
void AddChoice(RecordSaver<Table, Record>& saver, const QString& label, ChoiceField& choice,
               NumberOf numberOf, Set set) {
    ChoiceField* field = &choice;
    saver.Add({label, field, [=] { return field->IsChanged(); },
               [=](Record& record) { return set(record, field->Number()); },
               [=](Record& record) { return field->TextOf(numberOf(record)); },
               [=] { return field->currentText(); },
               [=](Record& record, bool keepsMine) { field->Give(numberOf(record), keepsMine); }});
}

template <class Record>
int CategoryOf(Record& record) {
    int category = kNoCategory;
    record.GetCategoryId(category);
    return category;
}

template <class Table, class Record>
void AddPrivateMark(RecordSaver<Table, Record>& saver, MarkField& mark) {
    MarkField* field = &mark;
    saver.Add(
        {PlainLabel(Text("&Private")), field, [=] { return field->IsChanged(); },
         [=](Record& record) { return record.SetPrivate(field->isChecked() ? 1 : 0); },
         [](Record& record) { return MarkText(record.IsPrivate() != 0); },
         [=] { return MarkText(field->isChecked()); },
         [=](Record& record, bool keepsMine) { field->Give(record.IsPrivate() != 0, keepsMine); }});
}

// The note, which a record reads from the store.
template <class Table, class Record>
void AddNoteText(RecordSaver<Table, Record>& saver, const QString& label, TextField& text) {
    TextField* field = &text;
    const auto noteOf = [](const Record& record) {
        std::string note;
        record.GetNoteUtf8(note);
        return note;
    };
    saver.Add({label, field, [=] { return field->IsChanged(); },
               [=](Record& record) { return record.SetNoteUtf8(field->Utf8()); },
               [=](Record& record) { return LinesOf(noteOf(record)); },
               [=] { return field->Shown(); },
               [=](Record& record, bool keepsMine) { field->Give(noteOf(record), keepsMine); }});
}

}  // namespace orvo::desktop
