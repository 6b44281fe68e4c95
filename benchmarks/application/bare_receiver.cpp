// SPDX-License-Identifier: MIT
// The least that QtDBus offers of what the application does with an event. It takes the application's name on
// the bus, answers Open and does nothing. With --notify it asks for one unchanging banner each time.
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace {

class BareReceiver final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
public:
    explicit BareReceiver(bool notifies) : notifies_(notifies) {}

public Q_SLOTS:
    // The bus knows the method by its name. NOLINTNEXTLINE(readability-identifier-naming)
    void Open(const QStringList&, const QVariantMap&)
    {
        if (!notifies_) return;
        const QString server = QStringLiteral("org.freedesktop.Notifications");
        QDBusMessage call = QDBusMessage::createMethodCall(
            server, QStringLiteral("/org/freedesktop/Notifications"), server, QStringLiteral("Notify"));
        call << QStringLiteral("Bare") << 0U << QString() << QStringLiteral("Title") << QStringLiteral("Body")
             << QStringList() << QVariantMap() << -1;
        QDBusConnection::sessionBus().asyncCall(call);
    }

private:
    bool notifies_;
};

}

int main(int argc, char** argv)
{
    const QCoreApplication qt(argc, argv);
    BareReceiver receiver(argc > 1);
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.registerObject(QStringLiteral("/app/chimewell/Chimewell"), &receiver,
                            QDBusConnection::ExportAllSlots) ||
        !bus.registerService(QStringLiteral("app.chimewell.Chimewell")))
        return 1;
    return QCoreApplication::exec();
}

#include "bare_receiver.moc"
