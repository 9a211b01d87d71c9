// The signals that ask the program to end, such as that of a closing session.
// SPDX-License-Identifier: MIT
#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

#include <desktop/EndSignals.h>

namespace orvo::desktop {
namespace {

constexpr std::array<int, 3> kSignals{SIGTERM, SIGINT, SIGHUP};

// A handler may do little more than write; the event loop reads the other end.
std::array<int, 2> g_pipeEnds{-1, -1};

void Tell(int) {
    const char byte = 0;
    static_cast<void>(!write(g_pipeEnds[1], &byte, 1));
}

}  // namespace

EndSignals::EndSignals(std::function<void()> end) {
    if (pipe2(g_pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    m_notifier = std::make_unique<QSocketNotifier>(g_pipeEnds[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [end = std::move(end)] {
                         char byte = 0;
                         static_cast<void>(!read(g_pipeEnds[0], &byte, 1));
                         end();
                     });
    for (const int number : kSignals) std::signal(number, Tell);
}

EndSignals::~EndSignals() {
    if (!m_notifier) return;
    for (const int number : kSignals) std::signal(number, SIG_DFL);
    m_notifier.reset();
    for (int& end : g_pipeEnds) close(std::exchange(end, -1));
}

}  // namespace orvo::desktop
