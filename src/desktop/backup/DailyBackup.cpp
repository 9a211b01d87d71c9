// The backup of the open store that is made each day.
// SPDX-License-Identifier: MIT
#include <QDate>
#include <utility>

#include <desktop/backup/DailyBackup.h>
#include <host/AutomaticBackup.h>

namespace orvo::desktop {
namespace {

// Milliseconds: the user sees the window first.
constexpr int kFirstLook = 3000;
constexpr int kInterval = 60'000;

std::string Day() {
    return QDate::currentDate().toString(Qt::ISODate).toStdString();
}

}  // namespace

DailyBackup::DailyBackup(StoreEngine& engine, std::function<void(const std::string&)> tell)
    : m_engine(engine), m_tell(std::move(tell)) {
    m_thread.setMaxThreadCount(1);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { Look(); });
}

DailyBackup::~DailyBackup() {
    Stop();
}

void DailyBackup::Start() {
    m_timer.start(kFirstLook);
}

void DailyBackup::Stop() {
    m_timer.stop();
    m_thread.waitForDone();
}

void DailyBackup::Look() {
    m_timer.setInterval(kInterval);
    if (m_thread.activeThreadCount() > 0 || m_failedDay == Day() || !IsBackupDue(m_engine)) return;
    m_thread.start([this, store = m_engine.Name()] {
        const std::string problem = MakeAutomaticBackup(store);
        QMetaObject::invokeMethod(&m_timer, [this, problem] { Tell(problem); });
    });
}

void DailyBackup::Tell(const std::string& problem) {
    if (problem.empty()) return;
    m_failedDay = Day();
    m_tell(problem);
}

}  // namespace orvo::desktop
