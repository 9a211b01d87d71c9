// The backup of the open store that is made each day.
// SPDX-License-Identifier: MIT
#include <QDate>
#include <chrono>
#include <utility>

#include <desktop/backup/DailyBackup.h>
#include <host/AutomaticBackup.h>

namespace orvo::desktop {
namespace {

// Milliseconds: the user sees the window first.
constexpr int kFirstLook = 3000;
constexpr int kInterval = 60'000;
constexpr int kIntervalAtWork = 500;

std::string Day() {
    return QDate::currentDate().toString(Qt::ISODate).toStdString();
}

}  // namespace

DailyBackup::DailyBackup(StoreEngine& engine, std::function<void(const std::string&)> tell)
    : m_engine(engine), m_tell(std::move(tell)) {
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
    if (m_work.valid()) m_work.wait();
}

void DailyBackup::Look() {
    if (m_work.valid()) {
        if (m_work.wait_for(std::chrono::seconds(0)) != std::future_status::ready) return;
        Tell(m_work.get());
    }
    const bool isDue = m_failedDay != Day() && IsBackupDue(m_engine);
    m_timer.setInterval(isDue ? kIntervalAtWork : kInterval);
    if (isDue) m_work = std::async(std::launch::async, MakeAutomaticBackup, m_engine.Name());
}

void DailyBackup::Tell(const std::string& problem) {
    if (problem.empty()) return;
    m_failedDay = Day();
    m_tell(problem);
}

}  // namespace orvo::desktop
