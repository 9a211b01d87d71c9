// Reminders of what the store of a session holds, and what the user answers to them.
// SPDX-License-Identifier: MIT
#include <desktop/store/SessionReminders.h>
#include <desktop/texts/Texts.h>
#include <exchange/calendar/Reminders.h>
#include <exchange/calendar/ToDoText.h>
#include <orvoshare/shared/DataSetClaim.h>
#include <platform/time/CTime.h>

namespace orvo::desktop {
namespace {

using Kind = ReminderAnswer::Kind;

constexpr std::int64_t kMinute = 60;

// Nothing where the answer doesn't put it off.
std::optional<std::int64_t> PutOffTo(Kind kind, std::int64_t now, int workDayBegins) {
    if (kind == Kind::TenMinutes) return now + 10 * kMinute;
    if (kind == Kind::OneHour) return now + 60 * kMinute;
    const std::optional<CivilTime> civil = CivilOfMoment(now);
    if (kind != Kind::Tomorrow || !civil) return std::nullopt;
    return MomentOfCivil({civil->year, civil->month, civil->day + 1, workDayBegins});
}

QString NameOf(Kind kind) {
    return kind == Kind::Complete ? Text("Complete") : Text("Reminder");
}

// Where nothing was to be acknowledged the general reminder has come, which no to-do holds.
long Answer(CToDoTable& toDos, std::int64_t id, const ReminderAnswer& answer,
            const COrvoDesktopOptions& options) {
    CToDoRecord record(toDos);
    const long found = toDos.Find(id, record);
    if (found == static_cast<long>(StoreStatus::Gone)) return 0;
    if (found != 0) return found;
    if (record.IsDeleted() || record.IsCompleted()) return 0;
    const std::int64_t now = CTime::GetCurrentTime().GetTime();
    const std::optional<std::int64_t> until =
        PutOffTo(answer.kind, now, options.GetWorkDayBegins());
    long status = 0;
    if (until || record.HasReminders()) {
        status = EditToDoText(record, [&](ToDoText& text) {
            return until ? SnoozeReminders(text, answer.told, now, *until)
                         : AcknowledgeReminders(text, answer.told, now);
        });
    }
    if (status == 0 && answer.kind == Kind::Complete) status = record.SetCompleted(1, 0);
    return status;
}

}  // namespace

SessionReminders::SessionReminders(StoreSession& session, const COrvoDesktopOptions& options,
                                   const std::function<void(const Note&)>& tell)
    : m_session(session),
      m_toDos(session.ToDos(), options, session.Path(), m_toDoClock, tell),
      m_birthdays(session.Days(), options, session.Path(), m_birthdayClock, tell) {
    m_session.SetRecordListener(this, [this](TableKind kind, std::optional<std::int64_t> id) {
        if (kind == TableKind::ToDo) return m_toDos.Forget(id);
        m_birthdays.Forget();
    });
}

SessionReminders::~SessionReminders() {
    m_session.SetRecordListener(this, nullptr);
}

void SessionReminders::Start() {
    m_toDos.Start();
    m_birthdays.Start();
}

void SessionReminders::Stop() {
    m_toDos.Stop();
    m_birthdays.Stop();
}

void SessionReminders::TakeOptions() {
    m_toDos.Forget({});
    m_birthdays.Forget();
}

std::string TakeAnswer(StoreSession& session, const COrvoDesktopOptions& options,
                       const ReminderAnswer& answer) {
    if (answer.store != DataSetUser(session.Path())) return {};
    return session.Change(NameOf(answer.kind).toStdString(), [&] {
        for (const std::int64_t id : answer.ids) {
            const long status = Answer(session.ToDos(), id, answer, options);
            if (status != 0) return status;
        }
        return 0L;
    });
}

}  // namespace orvo::desktop
