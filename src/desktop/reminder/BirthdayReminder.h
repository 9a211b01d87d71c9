// Reminds the user of birthdays.
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <functional>
#include <string>

#include <desktop/reminder/Note.h>
#include <desktop/reminder/WakeClock.h>
#include <orvoshare/options/DesktopOptions.h>
#include <people/DayIndex.h>

namespace orvo::desktop {

// Reminds of each birthday once a year, as many days before as the user has chosen, of all for
// which it is time together. What was told is kept for later starts. Of what isn't told whole, as
// it is private, it says nothing until it is.
class BirthdayReminder {
public:
    using Tell = std::function<void(const Note&)>;

    // Index, options and clock outlive it; the options are looked at each time. `store` is the path
    // by which stores are told apart.
    BirthdayReminder(DayIndex& days, const COrvoDesktopOptions& options, const std::string& store,
                     WakeClock& clock, Tell tell);

    // From now on it looks at each midnight, for the first time soon. Cards that aren't read yet
    // are read meanwhile, bit by bit.
    void Start();
    void Stop();

    // People or options aren't as they were.
    void Forget();

    void Look();

private:
    void Work();

    DayIndex& m_days;
    const COrvoDesktopOptions& m_options;
    std::string m_section;  // of the settings
    WakeClock& m_clock;
    Tell m_tell;
    QTimer m_timer;  // runs while cards are to be read
    bool m_isOn = false;
};

}  // namespace orvo::desktop
