// The desktop's file manager on the session bus
// (org.freedesktop.FileManager1), asked without waiting for its answer.
#include "platform/desktop_internal.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

namespace {

// A file manager started by the bus for this call may take a while.
constexpr int kAnswerMs = 10000;

// The session bus named by the environment as it is now: the address is
// read at each call, so a bus that came or went since is found.
QDBusConnection SessionBus() {
    const QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (address.isEmpty()) return QDBusConnection::sessionBus();
    const QString name = QStringLiteral("ferrydock:") + address;
    QDBusConnection bus = QDBusConnection::connectToBus(address, name);
    if (!bus.isConnected()) {
        // A bus that went away leaves a dead connection under its name.
        QDBusConnection::disconnectFromBus(name);
        bus = QDBusConnection::connectToBus(address, name);
    }
    return bus;
}

}  // namespace

namespace desktop::detail {

void ShowItemPropertiesOverBus(const QByteArray& posix, std::function<void()> none) {
    QDBusConnection bus = SessionBus();
    if (!bus.isConnected()) {
        none();
        return;
    }
    const QString uri = QStringLiteral("file://") + QString::fromLatin1(posix.toPercentEncoding("/"));
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItemProperties"));
    call << QStringList{uri} << QString();
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call, kAnswerMs), QCoreApplication::instance());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [none = std::move(none)](QDBusPendingCallWatcher* w) {
                         if (w->isError()) none();
                         w->deleteLater();
                     });
}

}  // namespace desktop::detail
