// A connection to the session bus that is served by Qt's event loop.
// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <unistd.h>

#include <fmt/format.h>

#include <desktop/reminder/SessionBus.h>

namespace orvo::desktop {
namespace {

constexpr char kDaemon[] = "org.freedesktop.DBus";
constexpr std::chrono::seconds kTimeLimit{3};
// By then the connection knows that the time is over.
constexpr std::chrono::milliseconds kReserve{100};

}  // namespace

std::unique_ptr<SessionBus> SessionBus::Open() {
    try {
        return std::unique_ptr<SessionBus>(new SessionBus(sdbus::createSessionBusConnection()));
    } catch (const sdbus::Error&) {
        return nullptr;
    }
}

// The notifier has a second number, as the bus closes its own when the daemon hangs up.
SessionBus::SessionBus(std::unique_ptr<sdbus::IConnection> connection)
    : m_connection(std::move(connection)),
      m_descriptor(
          ::fcntl(m_connection->getEventLoopPollData().fd, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)),
      m_notifier(m_descriptor.Number(), QSocketNotifier::Read) {
    m_soon.setSingleShot(true);
    m_limit.setSingleShot(true);
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { Serve(); });
    QObject::connect(&m_soon, &QTimer::timeout, &m_notifier, [this] { Serve(); });
    QObject::connect(&m_limit, &QTimer::timeout, &m_notifier, [this] { Serve(); });
}

void SessionBus::Await(std::chrono::milliseconds limit) {
    m_soon.start(0);
    m_limit.start(limit + kReserve);
}

void SessionBus::WatchName(const std::string& name,
                           const std::function<void(bool hasOwner)>& changed) {
    const std::string match = fmt::format(
        "type='signal',sender='{0}',interface='{0}',member='NameOwnerChanged',arg0='{1}'", kDaemon,
        name);
    m_connection->addMatch(
        match,
        [changed](sdbus::Message& message) {
            std::string of;
            std::string before;
            std::string now;
            message >> of >> before >> now;
            changed(!now.empty());
        },
        sdbus::floating_slot);
    m_soon.start(0);
}

bool SessionBus::HasOwner(const std::string& name) {
    bool hasOwner = false;
    try {
        sdbus::createProxy(*m_connection, kDaemon, "/org/freedesktop/DBus")
            ->callMethod("NameHasOwner")
            .onInterface(kDaemon)
            .withTimeout(kTimeLimit)
            .withArguments(name)
            .storeResultsTo(hasOwner);
    } catch (const sdbus::Error&) {
        return false;
    }
    m_soon.start(0);
    return hasOwner;
}

void SessionBus::Serve() {
    try {
        while (m_connection->processPendingRequest()) {
        }
    } catch (const sdbus::Error&) {
        m_notifier.setEnabled(false);
        if (m_ended) m_ended();
    }
}

}  // namespace orvo::desktop
