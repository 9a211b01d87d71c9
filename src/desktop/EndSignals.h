// The signals that ask the program to end, such as that of a closing session.
// SPDX-License-Identifier: MIT
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace orvo::desktop {

// While it lives, SIGTERM, SIGINT and SIGHUP call a function from the event loop, so that the
// window can close as by the user and nothing is lost.
class EndSignals {
public:
    explicit EndSignals(std::function<void()> end);
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

}  // namespace orvo::desktop
