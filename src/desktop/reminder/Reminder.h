// Reminds the user of to-dos while the window is open.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTimer>
#include <functional>
#include <set>
#include <utility>

#include <desktop/reminder/DueReminders.h>

namespace orvo::desktop {

// Reminds of each to-do once, and again when it gets another due time; of all for which it is time,
// together. It plays the sound that the user has chosen.
class Reminder {
public:
    using Tell = std::function<void(const QString& title, const QString& body)>;

    // Engine and options outlive it; the options are looked at each time.
    Reminder(StoreEngine& engine, const COrvoDesktopOptions& options, Tell tell);

    // From now on it looks several times a minute, for the first time at once.
    void Start();
    void Stop();

    void Look();

private:
    StoreEngine& m_engine;
    const COrvoDesktopOptions& m_options;
    Tell m_tell;
    std::set<std::pair<std::int64_t, CivilTime>> m_told;
    QTimer m_timer;
};

}  // namespace orvo::desktop
