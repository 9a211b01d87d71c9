// The reminders of a to-do in its form.
// SPDX-License-Identifier: MIT
#include <QDateTimeEdit>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QStringList>
#include <QToolButton>
#include <algorithm>
#include <array>

#include <desktop/details/ReminderWords.h>
#include <desktop/forms/FormFields.h>
#include <desktop/forms/RemindersField.h>
#include <desktop/forms/StillWheel.h>
#include <desktop/texts/Texts.h>
#include <exchange/calendar/ReminderText.h>
#include <exchange/calendar/ToDoText.h>
#include <platform/time/CTime.h>

namespace orvo::desktop {
namespace {

constexpr const char* kBetweenReminders = "; ";
constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 60 * kMinute;
constexpr std::int64_t kDay = 24 * kHour;
constexpr std::array<std::int64_t, 8> kAdvances{0,     5 * kMinute, 15 * kMinute, 30 * kMinute,
                                                kHour, 2 * kHour,   kDay,         7 * kDay};

QString FormOf(const RemindersField::Times& times) {
    QStringList texts;
    for (const ReminderTime& time : times) texts += FromUtf8(FormatReminder(time));
    return texts.join(kBetweenReminders);
}

// In the order in which the form was given them; a snoozed one isn't the user's to edit.
RemindersField::Times TimesOf(const CToDoRecord& record) {
    RemindersField::Times times;
    ToDoText text;
    if (!record.HasReminders() || ReadToDoText(record, text) != 0) return times;
    for (const ToDoReminder& reminder : ReadReminders(text)) {
        const bool isKnown = std::ranges::find(times, reminder.time) != times.end();
        if (!reminder.isSnooze && !isKnown) times.push_back(reminder.time);
    }
    return times;
}

// The next full hour.
std::int64_t NextHour() {
    const std::int64_t now = CTime::GetCurrentTime().GetTime();
    return now - now % kHour + kHour;
}

}  // namespace

RemindersField::RemindersField(const Times& given) : m_text(this) {
    m_text.setObjectName("reminders");
    m_text.hide();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    m_rows = new QVBoxLayout;
    column->addLayout(m_rows);
    column->addWidget(&m_add, 0, Qt::AlignLeading);
    AddChoices();
    setFocusProxy(&m_add);
    setFocusPolicy(Qt::StrongFocus);  // for its label
    connect(&m_text, &QLineEdit::textChanged, this, [this] {
        if (!m_isMoving) ShowRows();
    });
    Give(given, false);
}

void RemindersField::AddChoices() {
    m_add.setText(Text("Add a reminder..."));
    m_add.setAutoDefault(false);
    auto* menu = new QMenu(&m_add);
    for (const std::int64_t seconds : kAdvances) {
        const ReminderTime time{ReminderTime::From::Due, seconds};
        connect(menu->addAction(ReminderWords(time)), &QAction::triggered, this,
                [this, time] { Add(time); });
    }
    connect(menu->addAction(Text("at a day and time")), &QAction::triggered, this, [this] {
        Add({ReminderTime::From::Moment, NextHour()});
    });
    m_add.setMenu(menu);
}

void RemindersField::Add(const ReminderTime& time) {
    Times times = Value();
    if (std::ranges::find(times, time) != times.end()) return;
    times.push_back(time);
    Set(times);
}

RemindersField::Times RemindersField::Value() const {
    Times times;
    for (const QString& text : m_text.text().split(kBetweenReminders, Qt::SkipEmptyParts)) {
        const std::optional<ReminderTime> time = ReadReminder(text.toStdString());
        if (time) times.push_back(*time);
    }
    return times;
}

void RemindersField::Give(const Times& times, bool keepsMine) {
    m_given = FormOf(times);
    if (!keepsMine) Set(times);
}

QString RemindersField::TextOf(const Times& times) {
    QStringList texts;
    for (const ReminderTime& time : times) texts += ReminderWords(time);
    return texts.join("\n");
}

void RemindersField::Set(const Times& times) {
    m_text.setText(FormOf(times));
}

// A row whose button was pressed goes once the press is over.
void RemindersField::ShowRows() {
    while (QLayoutItem* row = m_rows->takeAt(0)) {
        row->widget()->hide();
        row->widget()->deleteLater();
        delete row;
    }
    const Times times = Value();
    for (std::size_t place = 0; place < times.size(); ++place) {
        const QString words = ReminderWords(times[place]);
        auto* line = new QWidget;
        auto* row = new QHBoxLayout(line);
        row->setContentsMargins(0, 0, 0, 0);
        const bool isMoment = times[place].from == ReminderTime::From::Moment;
        row->addWidget(isMoment ? MakeMoment(place) : new QLabel(words));
        auto* remove = new QToolButton;
        remove->setText(QString(QChar(0x00D7)));
        remove->setAutoRaise(true);
        remove->setFocusPolicy(Qt::StrongFocus);
        remove->setToolTip(Text("Remove"));
        remove->setAccessibleName(Text("Remove the reminder %1").arg(words));
        connect(remove, &QToolButton::clicked, this, [this, place] {
            Times left = Value();
            left.erase(left.begin() + static_cast<std::ptrdiff_t>(place));
            m_add.setFocus();
            Set(left);
        });
        row->addWidget(remove);
        row->addStretch();
        m_rows->addWidget(line);
    }
}

QWidget* RemindersField::MakeMoment(std::size_t place) {
    auto* edit = new StillWheel<QDateTimeEdit>;
    edit->setLayoutDirection(Qt::LeftToRight);
    edit->setCalendarPopup(true);
    edit->setDisplayFormat(QLocale().dateTimeFormat(QLocale::ShortFormat));
    edit->setDateTime(QDateTime::fromSecsSinceEpoch(Value()[place].seconds));
    edit->setAccessibleName(Text("Reminder"));
    connect(edit, &QDateTimeEdit::dateTimeChanged, this, [this, place](const QDateTime& moment) {
        Times times = Value();
        times[place].seconds = moment.toSecsSinceEpoch();
        m_isMoving = true;
        Set(times);
        m_isMoving = false;
    });
    return edit;
}

void AddReminders(RecordSaver<CToDoTable, CToDoRecord>& saver, CToDoRecord& record,
                  QGridLayout& grid, int row) {
    auto* field = new RemindersField(TimesOf(record));
    saver.Add(
        {PlainLabel(Text("Re&minders:")), field, [field] { return field->IsChanged(); },
         [field](CToDoRecord& edited) {
             return EditToDoText(
                 edited, [field](ToDoText& text) { return SetReminders(text, field->Value()); });
         },
         [](CToDoRecord& read) { return RemindersField::TextOf(TimesOf(read)); },
         [field] { return RemindersField::TextOf(field->Value()); },
         [field](CToDoRecord& read, bool keepsMine) { field->Give(TimesOf(read), keepsMine); }});
    grid.addWidget(MakeLabel(Text("Re&minders:"), *field), row, 0, Qt::AlignTop);
    grid.addWidget(field, row, 1);
}

}  // namespace orvo::desktop
