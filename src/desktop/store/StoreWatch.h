// Looks at a store soon after somebody has written to its files.
// SPDX-License-Identifier: MIT
#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>
#include <functional>
#include <string>

namespace orvo::desktop {

// `look` is called several times within a moment after each write, as what is written counts only
// once it is safe on the disk, and now and then where nobody writes: not every file system tells.
class StoreWatch : public QObject {
public:
    // The path, UTF-8, is that of the store's file.
    StoreWatch(const std::string& path, std::function<void()> look);

    // Between these it looks; at first it doesn't. With `looksNowAndThen` false it sleeps until it
    // is told of a write.
    void Start(bool looksNowAndThen = true);
    void Stop();

private:
    void Watch();
    void Written();
    void LookAgain();

    QString m_file;
    std::function<void()> m_look;
    QFileSystemWatcher m_files;
    QTimer m_slow;
    QTimer m_soon;  // runs in the moment after a write
    bool m_isOn = false;
    std::size_t m_looked = 0;  // how often in that moment
};

}  // namespace orvo::desktop
