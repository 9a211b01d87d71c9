// The backup of the open store that is made each day.
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <functional>
#include <future>
#include <string>

#include <contracts/StoreEngine.h>

namespace orvo::desktop {

// Some moments after the start, and when the day changes, it makes the backup in another thread.
class DailyBackup {
public:
    // `tell` gets one line about a backup that can't be made; it isn't tried again on that day.
    // The engine outlives the object.
    DailyBackup(StoreEngine& engine, std::function<void(const std::string&)> tell);
    ~DailyBackup();
    DailyBackup(const DailyBackup&) = delete;
    DailyBackup& operator=(const DailyBackup&) = delete;

    void Start();
    // Waits for a backup that is being made.
    void Stop();

private:
    void Look();
    void Tell(const std::string& problem);

    StoreEngine& m_engine;
    std::function<void(const std::string&)> m_tell;
    QTimer m_timer;
    std::future<std::string> m_work;  // why no backup could be made
    std::string m_failedDay;
};

}  // namespace orvo::desktop
