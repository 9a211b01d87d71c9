// Reminds the user of to-dos.
// SPDX-License-Identifier: MIT
#include <QDateTime>
#include <QLocale>
#include <QStringList>
#include <algorithm>

#include <desktop/reminder/Reminder.h>
#include <desktop/texts/Texts.h>
#include <orvoshare/shared/DataSetClaim.h>

namespace orvo::desktop {
namespace {

// The window comes first.
constexpr std::chrono::milliseconds kFirstWait{500};
// After a change others may follow.
constexpr std::chrono::milliseconds kSoon{50};
// Between two moments in which to-dos are read.
constexpr std::chrono::milliseconds kReadPause{30};
constexpr std::chrono::milliseconds kReadInAMoment{10};
constexpr std::size_t kMostNamed = 10;
// More that come at once are told together.
constexpr std::size_t kMostNotes = 3;
constexpr qsizetype kLongestName = 120;
// An answer names them all, and not every service takes an answer of any length.
constexpr std::size_t kMostAnswered = 100;

QString TimeText(const CivilTime& due) {
    const QDate day(due.year, due.month, due.day);
    if (IsWholeDay(due)) return QLocale().toString(day, QLocale::ShortFormat);
    const QDateTime moment(day, QTime(due.hour, due.minute, due.second));
    return QLocale().toString(moment, QLocale::ShortFormat);
}

QString Line(const DueReminder& reminder) {
    QString name = FromUtf8(reminder.description).simplified();
    if (name.isEmpty()) name = Text("Private to-do");
    if (name.size() > kLongestName) {
        const bool isInsideOne = name.at(kLongestName - 1).isHighSurrogate();
        name = name.left(kLongestName - (isInsideOne ? 1 : 0)) + QChar(0x2026);
    }
    return reminder.due ? Text("%1 (due %2)").arg(name, TimeText(*reminder.due)) : name;
}

QString Body(const std::vector<DueReminder>& reminders) {
    QStringList lines;
    for (const DueReminder& reminder : reminders) {
        if (static_cast<std::size_t>(lines.size()) == kMostNamed) break;
        lines += Line(reminder);
    }
    if (reminders.size() > kMostNamed) {
        lines += CountText("and %1 other to-do", "and %1 other to-dos",
                           static_cast<std::int64_t>(reminders.size() - kMostNamed));
    }
    return lines.join('\n');
}

}  // namespace

Reminder::Reminder(CToDoTable& toDos, const COrvoDesktopOptions& options, const std::string& store,
                   WakeClock& clock, Tell tell)
    : m_plan(toDos, options),
      m_told(store),
      m_store(DataSetUser(store)),
      m_clock(clock),
      m_tell(std::move(tell)) {
    m_soon.setSingleShot(true);
    QObject::connect(&m_soon, &QTimer::timeout, [this] { Work(); });
    m_clock.SetListener([this] { Look(); });
}

void Reminder::Start() {
    m_isOn = true;
    m_plan.Clear();
    m_soon.start(kFirstWait);
}

void Reminder::Stop() {
    m_isOn = false;
    m_soon.stop();
    m_clock.WakeAt(std::nullopt);
}

void Reminder::Forget(std::optional<std::int64_t> id) {
    id ? m_plan.Forget(*id) : m_plan.Clear();
    if (m_isOn && !m_soon.isActive()) m_soon.start(kSoon);
}

void Reminder::Work() {
    if (m_plan.Read(kReadInAMoment, m_told)) return Look();
    m_soon.start(kReadPause);
}

// Kept before it is told: a program that ends in between has rather lost one than told it for ever.
void Reminder::Look() {
    if (!m_isOn) return;
    const std::vector<DueReminder> news = m_plan.Take(m_clock.Now(), m_told);
    if (!news.empty()) {
        m_told.Keep();
        TellAll(news, m_isFirst || news.size() > kMostNotes);
    }
    m_isFirst = false;
    m_clock.WakeAt(m_plan.Next());
}

void Reminder::TellAll(const std::vector<DueReminder>& reminders, bool isTogether) const {
    if (isTogether) return m_tell(NoteOf(reminders));
    for (const DueReminder& reminder : reminders) {
        Note note = NoteOf({reminder});
        note.sounds = reminder.id == reminders.front().id;
        m_tell(note);
    }
}

Note Reminder::NoteOf(const std::vector<DueReminder>& reminders) const {
    using Kind = ReminderAnswer::Kind;
    ReminderAnswer answer{Kind::Seen, m_store, 0};
    bool isWhole = true;
    for (const DueReminder& reminder : reminders) {
        answer.told = std::max(answer.told, reminder.moment);
        if (answer.ids.size() < kMostAnswered) answer.ids.push_back(reminder.id);
        isWhole = isWhole && reminder.isWhole;
    }
    const auto text = [&answer](Kind kind) {
        answer.kind = kind;
        return answer.Text();
    };
    Note note{CountText("Reminder of %1 to-do", "Reminder of %1 to-dos", std::ssize(reminders)),
              Body(reminders)};
    note.sounds = true;
    if (reminders.size() == 1 && isWhole) {
        note.buttons.push_back({Text("Complete"), text(Kind::Complete)});
    }
    note.buttons.push_back({Text("In 10 minutes"), text(Kind::TenMinutes)});
    note.buttons.push_back({Text("In 1 hour"), text(Kind::OneHour)});
    note.buttons.push_back({Text("Tomorrow"), text(Kind::Tomorrow)});
    note.buttons.push_back({Text("Open"), text(Kind::Open)});
    note.opened = text(Kind::Open);
    note.closed = text(Kind::Seen);
    return note;
}

}  // namespace orvo::desktop
