// A message to the user, by a notification service on a bus of its own, and without one.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QDialog>
#include <QLabel>
#include <QProcess>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <desktop/reminder/Notification.h>
#include <support/Patience.h>

namespace orvo::desktop {
namespace {

constexpr const char* kService = "org.freedesktop.Notifications";

class Service : public QDBusVirtualObject {
public:
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        calls << message;
        return bus.send(message.createReply(quint32(1)));
    }
    QList<QDBusMessage> calls;
};

class Notification : public testing::Test {
protected:
    QDialog* Window() const { return parent.findChild<QDialog*>(); }
    QWidget parent;
};

// The bus of the session is chosen once for the process, so that both cases stand in one test.
TEST_F(Notification, GoesToTheServiceOfTheDesktopElseIntoAWindow) {
    QProcess daemon;
    daemon.start("dbus-daemon", {"--config-file=" ORVO_TEST_BUS, "--nofork", "--print-address"});
    ASSERT_TRUE(daemon.waitForReadyRead());
    const QByteArray address = daemon.readLine().trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);

    ShowNotification(parent, "Reminder", "Fish & <b>chips</b>");
    ASSERT_TRUE(QTest::qWaitFor([this] { return Window() != nullptr; }, kPatience));
    EXPECT_EQ(Window()->windowTitle(), "Reminder");
    EXPECT_FALSE(Window()->isModal());
    EXPECT_EQ(Window()->findChild<QLabel*>()->text(), "Fish & <b>chips</b>");
    EXPECT_EQ(Window()->findChild<QLabel*>()->textFormat(), Qt::PlainText);
    Window()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(Window(), nullptr);

    Service service;
    QDBusConnection bus = QDBusConnection::connectToBus(QString(address), "service");
    ASSERT_TRUE(bus.registerVirtualObject("/org/freedesktop/Notifications", &service));
    ASSERT_TRUE(bus.registerService(kService));
    ShowNotification(parent, "Reminder", "Fish & <b>chips</b>");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !service.calls.isEmpty(); }, kPatience));
    const QDBusMessage call = service.calls.front();
    EXPECT_EQ(call.member(), "Notify");
    EXPECT_EQ(call.signature(), "susssasa{sv}i");
    EXPECT_EQ(call.arguments().at(3), "Reminder");
    EXPECT_EQ(call.arguments().at(4), "Fish &amp; &lt;b&gt;chips&lt;/b&gt;");
    EXPECT_EQ(Window(), nullptr);

    QDBusConnection::disconnectFromBus("service");
    daemon.kill();
    daemon.waitForFinished();
}

}  // namespace
}  // namespace orvo::desktop
