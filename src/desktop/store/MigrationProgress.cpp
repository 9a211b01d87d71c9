// The window that shows how far a store of an older version has come to this one.
// SPDX-License-Identifier: MIT
#include <QElapsedTimer>
#include <QProgressDialog>
#include <memory>

#include <desktop/store/MigrationProgress.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

constexpr int kMoment = 400;  // milliseconds
constexpr int kRefresh = 30;
constexpr int kSteps = 1000;

class MigrationWindow {
public:
    void Show(std::int64_t done, std::int64_t total) {
        if (m_sinceStart.elapsed() < kMoment ||
            (m_sinceShown.isValid() && m_sinceShown.elapsed() < kRefresh)) {
            return;
        }
        if (!m_window) Make();
        m_window->setValue(static_cast<int>(done * kSteps / std::max<std::int64_t>(1, total)));
        m_sinceShown.start();
    }

    MigrationWindow() { m_sinceStart.start(); }

private:
    void Make() {
        m_window = std::make_unique<QProgressDialog>(
            Text("Bringing the store to the format of this version…"), QString(), 0, kSteps);
        m_window->setWindowModality(Qt::ApplicationModal);
        m_window->setAutoClose(false);
        m_window->setAutoReset(false);
        m_window->show();
    }

    QElapsedTimer m_sinceStart;
    QElapsedTimer m_sinceShown;
    std::unique_ptr<QProgressDialog> m_window;
};

}  // namespace

StoreProgress ShowMigration() {
    return [window = std::make_shared<MigrationWindow>()](std::int64_t done, std::int64_t total) {
        window->Show(done, total);
        return true;
    };
}

}  // namespace orvo::desktop
