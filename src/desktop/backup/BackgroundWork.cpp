// Work on files that may take long, while the window goes on to be drawn.
// SPDX-License-Identifier: MIT
#include <QEventLoop>
#include <QGuiApplication>
#include <QProgressDialog>
#include <QThreadPool>

#include <desktop/backup/BackgroundWork.h>

namespace orvo::desktop {
namespace {

constexpr int kMoment = 400;  // milliseconds

}  // namespace

void RunInBackground(QWidget* parent, const QString& text, const std::function<void()>& work) {
    QProgressDialog window(text, QString(), 0, 0, parent);
    window.setWindowModality(Qt::ApplicationModal);
    window.setMinimumDuration(kMoment);
    window.setValue(0);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    QEventLoop loop;
    QThreadPool thread;
    thread.start([&] {
        work();
        QMetaObject::invokeMethod(&loop, "quit", Qt::QueuedConnection);
    });
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    thread.waitForDone();
    QGuiApplication::restoreOverrideCursor();
}

}  // namespace orvo::desktop
