// Reminds the user while no window is open.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

#include <desktop/instance/Instance.h>
#include <desktop/reminder/Notifications.h>
#include <desktop/store/SessionReminders.h>
#include <desktop/store/StoreWatch.h>
#include <platform/qt/QtSound.h>

namespace orvo::desktop {

// Exit codes beside those of the program: it is to start anew, as another store lies in the place
// of the one that it has open, or with windows of its own.
constexpr int kRestart = -1;
constexpr int kRestartWithWindows = -2;

// Runs within an application that needs no windows. Whenever a window of the store is open it gives
// way to that and closes the store.
class ReminderService {
public:
    // `store` is the path of the store's file. `end` is called with the exit code once there is
    // nothing to be done any more. `showNote` takes notes where there is no notification service,
    // with what is to be called with the answer, and returns false where it can't show them.
    struct Hooks {
        std::function<void(int code)> end;
        std::function<bool(const Note&, const std::function<void(const std::string&)>&)> showNote;
    };
    ReminderService(std::string store, Hooks hooks);
    ~ReminderService();
    ReminderService(const ReminderService&) = delete;
    ReminderService& operator=(const ReminderService&) = delete;

    // Returns:  false where there is no session bus, or the store can't be opened; the reason is
    //           reported then.
    bool Start();

    // What another start asks: it ends, or it does nothing.
    void Take(const StartRequest& request);

private:
    struct Work;

    void LookForWindow();
    bool Begin();
    void LookAtStore();
    void LookAtOptions();
    void Tell(const Note& note);
    void ShowOwn(const Note& note);
    void Answer(const std::string& text, const std::string& token);
    void Open(const ReminderAnswer& answer, const std::string& token) const;

    std::string m_store;
    Hooks m_hooks;
    std::unique_ptr<SessionBus> m_bus;
    std::unique_ptr<Notifications> m_notifications;
    std::unique_ptr<Work> m_work;  // while no window is open
    QtSound m_sound;
    QTimer m_change;  // runs once a window has come or gone
    bool m_hasWindow = false;
};

}  // namespace orvo::desktop
