// Reminds the user of to-dos.
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <functional>
#include <optional>
#include <string>

#include <desktop/reminder/Note.h>
#include <desktop/reminder/ReminderPlan.h>
#include <desktop/reminder/WakeClock.h>

namespace orvo::desktop {

// Tells each reminder once on this machine: together what has come while nothing ran, then each
// when it comes, unless many come at once. Between reminders it sleeps.
class Reminder {
public:
    using Tell = std::function<void(const Note&)>;

    // All of it outlives it; the options are looked at each time. `store` is the path by which
    // stores are told apart.
    Reminder(CToDoTable& toDos, const COrvoDesktopOptions& options, const std::string& store,
             WakeClock& clock, Tell tell);

    // From now on it tells, what has come already soon. To-dos that aren't read yet are read
    // meanwhile, bit by bit.
    void Start();
    void Stop();

    // The to-do isn't as it was; without an id none is, or the options aren't.
    void Forget(std::optional<std::int64_t> id);

    void Look();

private:
    Note NoteOf(const std::vector<DueReminder>& reminders) const;
    void Work();
    void TellAll(const std::vector<DueReminder>& reminders, bool isTogether) const;

    ReminderPlan m_plan;
    ToldReminders m_told;
    std::string m_store;  // DataSetUser
    WakeClock& m_clock;
    Tell m_tell;
    QTimer m_soon;  // runs while something is to be read
    bool m_isOn = false;
    bool m_isFirst = true;
};

}  // namespace orvo::desktop
