// Looks at a store soon after somebody has written to its files.
// SPDX-License-Identifier: MIT
#include <QFileInfo>
#include <array>
#include <utility>

#include <desktop/store/StoreWatch.h>

namespace orvo::desktop {
namespace {

// Milliseconds from a write to the first look, and from one look to the next. A look that finds
// nothing takes some microseconds.
constexpr std::array kLooks{2, 3, 5, 10, 20, 40, 80};
// Milliseconds between two looks where nothing tells of a write.
constexpr int kSlow = 400;

}  // namespace

StoreWatch::StoreWatch(const std::string& path, std::function<void()> look)
    : m_file(QFileInfo(QString::fromStdString(path)).canonicalFilePath()), m_look(std::move(look)) {
    m_slow.setInterval(kSlow);
    m_soon.setSingleShot(true);
    m_soon.setTimerType(Qt::PreciseTimer);
    connect(&m_slow, &QTimer::timeout, this, [this] { m_look(); });
    connect(&m_soon, &QTimer::timeout, this, [this] { LookAgain(); });
    connect(&m_files, &QFileSystemWatcher::fileChanged, this, [this] { Written(); });
    connect(&m_files, &QFileSystemWatcher::directoryChanged, this, [this] { Written(); });
}

void StoreWatch::Start(bool looksNowAndThen) {
    m_isOn = true;
    Watch();
    if (looksNowAndThen) m_slow.start();
}

void StoreWatch::Stop() {
    m_isOn = false;
    m_slow.stop();
    m_soon.stop();
    const QStringList watched = m_files.files() + m_files.directories();
    if (!watched.isEmpty()) m_files.removePaths(watched);
}

// The log of the store comes and goes, and the folder tells when.
void StoreWatch::Watch() {
    if (m_file.isEmpty()) return;
    for (const QString& path : {m_file, m_file + "-wal", QFileInfo(m_file).path()}) {
        const bool isWatched =
            m_files.files().contains(path) || m_files.directories().contains(path);
        if (!isWatched && QFileInfo::exists(path)) m_files.addPath(path);
    }
}

// Who writes without a pause is looked at all the same.
void StoreWatch::Written() {
    Watch();
    m_looked = 0;
    if (m_isOn && !m_soon.isActive()) m_soon.start(kLooks.front());
}

void StoreWatch::LookAgain() {
    m_look();
    ++m_looked;
    if (m_isOn && m_looked < kLooks.size()) m_soon.start(kLooks[m_looked]);
}

}  // namespace orvo::desktop
