// A message that the desktop shows beside all windows.
// SPDX-License-Identifier: MIT
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <desktop/reminder/Notification.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

constexpr const char* kService = "org.freedesktop.Notifications";
constexpr const char* kPath = "/org/freedesktop/Notifications";
constexpr int kTimeLimit = 2000;        // milliseconds
constexpr int kAsTheServiceLikes = -1;  // how long it is shown
constexpr int kTextWidth = 48;          // characters

void ShowWindow(QWidget& parent, const QString& title, const QString& body) {
    auto* window = new QDialog(&parent);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setAttribute(Qt::WA_ShowWithoutActivating);
    window->setWindowTitle(title);
    auto* text = new QLabel(body);
    text->setTextFormat(Qt::PlainText);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    text->setWordWrap(true);
    text->setMinimumWidth(kTextWidth * parent.fontMetrics().averageCharWidth());
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->button(QDialogButtonBox::Close)->setText(Text("&Close"));
    QObject::connect(buttons, &QDialogButtonBox::rejected, window, &QDialog::close);
    auto* column = new QVBoxLayout(window);
    column->addWidget(text);
    column->addWidget(buttons);
    window->show();
}

}  // namespace

void ShowNotification(QWidget& parent, const QString& title, const QString& body) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        // Later, as the parent may not be shown yet.
        QMetaObject::invokeMethod(
            &parent, [&parent, title, body] { ShowWindow(parent, title, body); },
            Qt::QueuedConnection);
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, kService, "Notify");
    // The service reads the body as markup.
    call << "Orvo Desktop" << 0U << "org.orvoshare.OrvoDesktop" << title << body.toHtmlEscaped()
         << QStringList() << QVariantMap() << kAsTheServiceLikes;
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(call, kTimeLimit), &parent);  // Qt's
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, &parent,
                     [&parent, title, body](QDBusPendingCallWatcher* finished) {
                         if (finished->isError()) ShowWindow(parent, title, body);
                         finished->deleteLater();
                     });
}

}  // namespace orvo::desktop
