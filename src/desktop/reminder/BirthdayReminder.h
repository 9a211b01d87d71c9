// Reminds the user of birthdays while the window is open.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTimer>
#include <functional>
#include <string>

#include <orvoshare/options/DesktopOptions.h>
#include <people/DayIndex.h>

namespace orvo::desktop {

// Reminds of each birthday once a year, as many days before as the user has chosen, of all for
// which it is time together. What was told is kept for later starts. Of what isn't told whole, as
// it is private, it says nothing until it is.
class BirthdayReminder {
public:
    using Tell = std::function<void(const QString& title, const QString& body)>;

    // Index and options outlive it; the options are looked at each time. `store` is the path by
    // which stores are told apart.
    BirthdayReminder(DayIndex& days, const COrvoDesktopOptions& options, const std::string& store,
                     Tell tell);

    // From now on it looks now and then, for the first time soon. Cards that aren't read yet are
    // read meanwhile, bit by bit.
    void Start();
    void Stop() { m_timer.stop(); }

    void Look();

private:
    DayIndex& m_days;
    const COrvoDesktopOptions& m_options;
    std::string m_section;  // of the settings
    Tell m_tell;
    QTimer m_timer;
};

}  // namespace orvo::desktop
