// The form of a to-do.
// SPDX-License-Identifier: MIT
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLocale>
#include <tuple>
#include <utility>
#include <vector>

#include <contracts/Dates.h>
#include <desktop/forms/DateField.h>
#include <desktop/forms/FormDialog.h>
#include <desktop/forms/RemindersField.h>
#include <desktop/forms/SavedFields.h>
#include <desktop/forms/ToDoDates.h>
#include <desktop/forms/ToDoForm.h>
#include <desktop/parts/PartPanel.h>
#include <desktop/parts/PartQuestions.h>
#include <desktop/texts/Texts.h>
#include <exchange/calendar/ToDoParent.h>
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

int PriorityOf(CToDoRecord& record) {
    int priority = kFirstPriority;
    record.GetPriority(priority);
    return priority;
}

// kMaxDate where the day isn't known.
long CompletionOf(CToDoRecord& record) {
    long date = kMaxDate;
    record.GetCompletionDate(date);
    return date;
}

class ToDoForm {
public:
    // The parts may be null.
    ToDoForm(CToDoTable& table, CToDoRecord& record, const PartsContext* parts)
        : m_table(table), m_record(record), m_parts(parts), m_saver(table, record) {}

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
        AddReminders(m_saver, m_record, *grid, 6);
        AddPrivate(*grid);
        AddNote(*grid);
        dialog.Column().addLayout(grid);
        if (m_parts && m_record.GetId() != 0) AddParts(dialog);
        dialog.SetQuestion([this, &dialog] {
            const bool completes = m_isCompleted->isChecked() && m_record.IsCompleted() == 0;
            return !completes || MayLeaveParts(dialog);
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
    void AddPercent(QHBoxLayout& line);
    void AddParts(FormDialog& dialog);
    bool MayLeaveParts(FormDialog& dialog);
    long CompleteParts() const { return m_parts ? PartEdits(*m_parts).Complete(m_toComplete) : 0; }

    CToDoTable& m_table;
    CToDoRecord& m_record;
    const PartsContext* m_parts;
    bool m_arePartsChanged = false;
    std::vector<std::int64_t> m_toComplete;  // parts, when the form is saved
    PartPanel* m_panel = nullptr;            // Qt's
    RecordSaver<CToDoTable, CToDoRecord> m_saver;
    MarkField* m_isCompleted = nullptr;  // Qt's
};

void ToDoForm::AddDescription(QGridLayout& grid) {
    auto* text = new TextField(m_record.DescriptionUtf8(), kDescriptionLines);
    text->setObjectName("description");
    text->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_saver.Add({PlainLabel(Text("D&escription:")), text, [text] { return text->IsChanged(); },
                 [text](CToDoRecord& record) { return record.SetDescriptionUtf8(text->Utf8()); },
                 [](CToDoRecord& record) { return LinesOf(record.DescriptionUtf8()); },
                 [text] { return text->Shown(); },
                 [text](CToDoRecord& record, bool keepsMine) {
                     text->Give(record.DescriptionUtf8(), keepsMine);
                 }});
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
    AddChoice(m_saver, PlainLabel(Text("P&riority:")), *priority, PriorityOf,
              [](CToDoRecord& record, int number) { return record.SetPriority(number); });
    ChoiceField* category = MakeCategoryField(m_table, m_record);
    AddChoice(m_saver, PlainLabel(Text("Cate&gory:")), *category, CategoryOf<CToDoRecord>,
              [](CToDoRecord& record, int number) { return record.SetCategoryId(number); });
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
    const auto dateOf = [](const CToDoRecord& record) {
        long date = kMaxDate;
        record.GetDueDate(date);
        return date;
    };
    m_saver.Add(
        {PlainLabel(Text("D&ue on")), due, [due] { return due->IsChanged(); },
         [due](CToDoRecord& record) { return record.SetDueDate(due->Date()); },
         [=](CToDoRecord& record) { return DateField::TextOf(dateOf(record)); },
         [due] { return DateField::TextOf(due->Date()); },
         [=](CToDoRecord& record, bool keepsMine) { due->Give(dateOf(record), keepsMine); }});
    AddToDoDates(m_saver, m_record, *due, Today(), grid, 3);
    AddCompleted(grid);
}

// The day on which it was completed may be unknown.
void ToDoForm::AddCompleted(QGridLayout& grid) {
    const long given = CompletionOf(m_record);
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
    const auto textOf = [](bool isSet, long day) {
        return isSet && day != kMaxDate ? DateField::TextOf(day) : MarkText(isSet);
    };
    m_saver.Add({PlainLabel(Text("Comp&leted")), isCompleted,
                 [=] { return isCompleted->IsChanged() || date->IsChanged(); },
                 [=, this](CToDoRecord& record) {
                     if (!isCompleted->isChecked()) return record.SetCompleted(0, 0);
                     if (const long status = CompleteParts(); status != 0) return status;
                     // A series moves on; the day is that of the one that is done.
                     return record.IsCompleted() != 0 ? record.SetCompletionDate(date->Date())
                                                      : record.CompleteOn(date->Date());
                 },
                 [=](CToDoRecord& record) {
                     return textOf(record.IsCompleted() != 0, CompletionOf(record));
                 },
                 [=] { return textOf(isCompleted->isChecked(), date->Date()); },
                 [=](CToDoRecord& record, bool keepsMine) {
                     isCompleted->Give(record.IsCompleted() != 0, keepsMine);
                     date->Give(CompletionOf(record), keepsMine);
                 }});
    auto* line = new QHBoxLayout;
    line->addWidget(isCompleted);
    line->addStretch();
    AddPercent(*line);
    grid.addLayout(line, 4, 1);
    grid.addWidget(date, 5, 1);
}

void ToDoForm::AddPrivate(QGridLayout& grid) {
    auto* isPrivate = new MarkField(Text("&Private"), m_record.IsPrivate() != 0);
    isPrivate->setObjectName("private");
    AddPrivateMark(m_saver, *isPrivate);
    grid.addWidget(isPrivate, 7, 1);
}

void ToDoForm::AddNote(QGridLayout& grid) {
    auto* note = new TextField(m_saver.Note(), kToDoNoteLines);
    note->setObjectName("note");
    AddNoteText(m_saver, PlainLabel(Text("&Note:")), *note);
    grid.addWidget(MakeLabel(Text("&Note:"), *note), 8, 0, Qt::AlignTop);
    grid.addWidget(note, 8, 1);
    grid.setRowStretch(8, 1);
}

// What is completed is done as a whole.
void ToDoForm::AddPercent(QHBoxLayout& line) {
    constexpr int kMost = 100;
    constexpr int kStep = 5;
    auto* percent = new NumberField(m_record.GetPercent(), kMost, kStep);
    percent->setObjectName("percent");
    percent->setSuffix(Text(" %"));
    percent->setDisabled(m_isCompleted->isChecked());
    QObject::connect(m_isCompleted, &QCheckBox::toggled, percent, &QWidget::setDisabled);
    line.addWidget(MakeLabel(Text("Done so &far:"), *percent));
    line.addWidget(percent);
    m_saver.Add({PlainLabel(Text("Done so &far:")), percent,
                 [percent] { return percent->isEnabled() && percent->IsChanged(); },
                 [percent](CToDoRecord& record) {
                     return EditToDoText(record, [percent](ToDoText& toDo) {
                         return WithPercent(toDo, percent->value());
                     });
                 },
                 [](CToDoRecord& record) { return QLocale().toString(record.GetPercent()); },
                 [percent] { return QLocale().toString(percent->value()); },
                 [percent](CToDoRecord& record, bool keepsMine) {
                     percent->Give(record.GetPercent(), keepsMine);
                 }});
}

// They are in the store when anything is asked of the saver; it knows them only so that the form
// asks before they would be lost.
void ToDoForm::AddParts(FormDialog& dialog) {
    const std::int64_t id = m_record.GetId();
    m_panel = new PartPanel(*m_parts, {[this] { m_arePartsChanged = true; }, {}});
    m_saver.Add({Text("Parts"), m_panel, [this] { return m_arePartsChanged; },
                 [](CToDoRecord&) { return 0L; }, [](CToDoRecord&) { return QString(); },
                 [] { return QString(); }, [](CToDoRecord&, bool) {}});
    m_saver.SetReader([this, id](CToDoRecord&) {
        m_panel->Show(id);
        return 0L;
    });
    m_panel->Show(id);
    dialog.Column().addWidget(m_panel);
}

// Asks about parts that are open where the to-do is completed.
bool ToDoForm::MayLeaveParts(FormDialog& dialog) {
    if (!m_parts || m_record.GetId() == 0) return true;
    std::vector<std::int64_t> open = PartEdits(*m_parts).OpenPartsOf(m_record.GetId());
    m_toComplete.clear();
    if (open.empty()) return true;
    const PartsAnswer answer = AskAboutOpenParts(&dialog, static_cast<int>(open.size()));
    if (answer == PartsAnswer::All) m_toComplete = std::move(open);
    return answer != PartsAnswer::Cancel;
}

}  // namespace

bool EditToDo(QWidget* parent, CToDoTable& table, CToDoRecord& record, FormKeeper* keeper) {
    return ToDoForm(table, record, nullptr).Run(parent, keeper);
}

bool EditToDoWithParts(QWidget* parent, CToDoTable& table, CToDoRecord& record, FormKeeper* keeper,
                       const PartsContext& parts) {
    return ToDoForm(table, record, &parts).Run(parent, keeper);
}

}  // namespace orvo::desktop
