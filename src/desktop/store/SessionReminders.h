// Reminders of what the store of a session holds, and what the user answers to them.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include <desktop/reminder/BirthdayReminder.h>
#include <desktop/reminder/Reminder.h>
#include <desktop/store/StoreSession.h>
#include <orvoshare/options/DesktopOptions.h>

namespace orvo::desktop {

// Of to-dos and of birthdays. It sleeps until one comes, or until the session says that something
// has changed.
class SessionReminders {
public:
    // All of it outlives it.
    SessionReminders(StoreSession& session, const COrvoDesktopOptions& options,
                     const std::function<void(const Note&)>& tell);
    ~SessionReminders();
    SessionReminders(const SessionReminders&) = delete;
    SessionReminders& operator=(const SessionReminders&) = delete;

    void Start();
    void Stop();

    // The options aren't as they were.
    void TakeOptions();

private:
    StoreSession& m_session;
    SystemClock m_toDoClock;
    SystemClock m_birthdayClock;
    Reminder m_toDos;
    BirthdayReminder m_birthdays;
};

// Does to the store what the user has answered; the to-dos don't remind of the same again, neither
// here nor elsewhere. A to-do that is gone is passed over, as is an answer that isn't of this
// store.
// Returns:  an empty text on success, else why not, in one line.
std::string TakeAnswer(StoreSession& session, const COrvoDesktopOptions& options,
                       const ReminderAnswer& answer);

}  // namespace orvo::desktop
