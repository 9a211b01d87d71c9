// A connection to the session bus that is served by Qt's event loop.
// SPDX-License-Identifier: MIT
#pragma once

#include <QSocketNotifier>
#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>
#include <sdbus-c++/sdbus-c++.h>
#include <string>

#include <platform/io/Descriptor.h>

namespace orvo::desktop {

class SessionBus {
public:
    // Returns:  null where there is no session bus.
    static std::unique_ptr<SessionBus> Open();

    sdbus::IConnection& Connection() { return *m_connection; }

    // To be called after a call whose answer is awaited: it comes, or that there is none, within
    // that time.
    void Await(std::chrono::milliseconds limit);

    // Calls `changed` each time when the name on the bus gets an owner or loses it.
    void WatchName(const std::string& name, const std::function<void(bool hasOwner)>& changed);
    bool HasOwner(const std::string& name);

    // Called once the bus has gone.
    void SetEndListener(std::function<void()> listener) { m_ended = std::move(listener); }

private:
    explicit SessionBus(std::unique_ptr<sdbus::IConnection> connection);
    void Serve();

    std::unique_ptr<sdbus::IConnection> m_connection;
    std::function<void()> m_ended;
    Descriptor m_descriptor;
    QSocketNotifier m_notifier;
    QTimer m_soon;   // what has come while an answer was waited for isn't in the socket any more
    QTimer m_limit;  // runs while an answer is awaited
};

}  // namespace orvo::desktop
