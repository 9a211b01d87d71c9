// The form of a to-do.
// SPDX-License-Identifier: MIT
#include <QGridLayout>
#include <QLocale>
#include <tuple>

#include <contracts/Dates.h>
#include <desktop/forms/DateField.h>
#include <desktop/forms/EndOfSeries.h>
#include <desktop/forms/FormDialog.h>
#include <desktop/forms/FormFields.h>
#include <desktop/forms/ToDoForm.h>
#include <desktop/texts/Texts.h>
#include <platform/time/CTime.h>

namespace orvo::desktop {
namespace {

constexpr int kFirstPriority = 1;
constexpr int kLastPriority = 5;
constexpr int kDescriptionLines = 3;
constexpr int kToDoNoteLines = 8;

CivilTime Now() {
    return CivilOfMoment(CTime::GetCurrentTime().GetTime()).value_or(CivilTime());
}

CivilTime Today() {
    const CivilTime now = Now();
    return {now.year, now.month, now.day};
}

bool IsOfAnEarlierDay(long date) {
    const CivilTime today = Today();
    const CivilTime day = CivilOfMoment(date).value_or(today);
    return std::tie(day.year, day.month, day.day) < std::tie(today.year, today.month, today.day);
}

QString PriorityText(int priority) {
    QString number = QLocale().toString(priority);
    if (priority == kFirstPriority) return Text("%1 (highest)").arg(number);
    if (priority == kLastPriority) return Text("%1 (lowest)").arg(number);
    return number;
}

class ToDoForm {
public:
    ToDoForm(CToDoTable& table, CToDoRecord& record)
        : m_table(table), m_record(record), m_saver(table, record) {}

    bool Run(QWidget* parent, FormKeeper* keeper) {
        const QString title = m_record.GetId() == 0 ? Text("New to-do") : Text("Edit to-do");
        if (const SaveResult read = m_saver.Load(); read.status != StoreStatus::Ok) {
            TellUnreadable(parent, title, read);
            return false;
        }
        FormDialog dialog(parent, title, m_saver);
        dialog.KeepIn(keeper, {true, m_record.GetId(), m_record.IsPrivate() != 0, {}, {}});
        auto* grid = new QGridLayout;
        grid->setColumnStretch(1, 1);
        AddDescription(*grid);
        AddChoices(*grid);
        AddDates(*grid);
        AddPrivate(*grid);
        AddNote(*grid);
        dialog.Column().addLayout(grid);
        dialog.SetQuestion([this, &dialog] {
            const bool completes = m_isCompleted->isChecked() && m_record.IsCompleted() == 0;
            return !completes || MayComplete(&dialog, m_record);
        });
        return dialog.Run();
    }

private:
    void AddDescription(QGridLayout& grid);
    void AddChoices(QGridLayout& grid);
    void AddDates(QGridLayout& grid);
    void AddCompleted(QGridLayout& grid);
    void AddPrivate(QGridLayout& grid);
    void AddNote(QGridLayout& grid);

    CToDoTable& m_table;
    CToDoRecord& m_record;
    RecordSaver<CToDoTable, CToDoRecord> m_saver;
    MarkField* m_isCompleted = nullptr;  // Qt's
};

void ToDoForm::AddDescription(QGridLayout& grid) {
    auto* text = new TextField(m_record.DescriptionUtf8(), kDescriptionLines);
    text->setObjectName("description");
    text->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_saver.Add([text] { return text->IsChanged(); },
                [text](CToDoRecord& record) { return record.SetDescriptionUtf8(text->Utf8()); });
    grid.addWidget(MakeLabel(Text("D&escription:"), *text), 0, 0, Qt::AlignTop);
    grid.addWidget(text, 0, 1);
}

void ToDoForm::AddChoices(QGridLayout& grid) {
    auto* priority = new ChoiceField;
    priority->setObjectName("priority");
    for (int number = kFirstPriority; number <= kLastPriority; ++number) {
        priority->addItem(PriorityText(number), number);
    }
    int given = kFirstPriority;
    m_record.GetPriority(given);
    priority->Give(given, PriorityText(given));
    m_saver.Add([priority] { return priority->IsChanged(); },
                [priority](CToDoRecord& record) { return record.SetPriority(priority->Number()); });
    ChoiceField* category = MakeCategoryField(m_table, m_record);
    m_saver.Add(
        [category] { return category->IsChanged(); },
        [category](CToDoRecord& record) { return record.SetCategoryId(category->Number()); });
    grid.addWidget(MakeLabel(Text("P&riority:"), *priority), 1, 0);
    grid.addWidget(priority, 1, 1, Qt::AlignLeading);
    grid.addWidget(MakeLabel(Text("Cate&gory:"), *category), 2, 0);
    grid.addWidget(category, 2, 1, Qt::AlignLeading);
}

void ToDoForm::AddDates(QGridLayout& grid) {
    long given = kMaxDate;
    m_record.GetDueDate(given);
    auto* due = new DateField(Text("D&ue on"), given, Today(), false);
    due->setObjectName("due");
    if (!m_record.IsCompleted() && IsOfAnEarlierDay(given)) due->SetRemark(Text("overdue"));
    m_saver.Add([due] { return due->IsChanged(); },
                [due](CToDoRecord& record) { return record.SetDueDate(due->Date()); });
    grid.addWidget(due, 3, 1);
    AddCompleted(grid);
}

// The day on which it was completed may be unknown.
void ToDoForm::AddCompleted(QGridLayout& grid) {
    long given = kMaxDate;
    m_record.GetCompletionDate(given);
    auto* isCompleted = new MarkField(Text("Comp&leted"), m_record.IsCompleted() != 0);
    isCompleted->setObjectName("completed");
    m_isCompleted = isCompleted;
    auto* date = new DateField(Text("C&ompleted on"), given, Now(), true);
    date->setObjectName("completedOn");
    date->setEnabled(isCompleted->isChecked());
    QObject::connect(isCompleted, &QCheckBox::toggled, date, [date](bool isOn) {
        date->setEnabled(isOn);
        date->SetHasDate(isOn);
    });
    m_saver.Add([=] { return isCompleted->IsChanged() || date->IsChanged(); },
                [=](CToDoRecord& record) {
                    if (!isCompleted->isChecked()) return record.SetCompleted(0, 0);
                    const long status = record.SetCompleted(1, 0);
                    return status == 0 ? record.SetCompletionDate(date->Date()) : status;
                });
    grid.addWidget(isCompleted, 4, 1);
    grid.addWidget(date, 5, 1);
}

void ToDoForm::AddPrivate(QGridLayout& grid) {
    auto* isPrivate = new MarkField(Text("&Private"), m_record.IsPrivate() != 0);
    isPrivate->setObjectName("private");
    m_saver.Add([isPrivate] { return isPrivate->IsChanged(); },
                [isPrivate](CToDoRecord& record) {
                    return record.SetPrivate(isPrivate->isChecked() ? 1 : 0);
                });
    grid.addWidget(isPrivate, 6, 1);
}

void ToDoForm::AddNote(QGridLayout& grid) {
    auto* note = new TextField(m_saver.Note(), kToDoNoteLines);
    note->setObjectName("note");
    m_saver.Add([note] { return note->IsChanged(); },
                [note](CToDoRecord& record) { return record.SetNoteUtf8(note->Utf8()); });
    grid.addWidget(MakeLabel(Text("&Note:"), *note), 7, 0, Qt::AlignTop);
    grid.addWidget(note, 7, 1);
    grid.setRowStretch(7, 1);
}

}  // namespace

bool EditToDo(QWidget* parent, CToDoTable& table, CToDoRecord& record, FormKeeper* keeper) {
    return ToDoForm(table, record).Run(parent, keeper);
}

}  // namespace orvo::desktop
