// SPDX-License-Identifier: MIT
#include "support/private_bus.h"

#include <QDBusMessage>
#include <QDir>
#include <QFile>

#include <utility>

namespace chimewell::test {
namespace {

constexpr char configuration[] =
    R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
  "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <keep_umask/>
  <listen>unix:path=%1/bus</listen>
  <auth>EXTERNAL</auth>
  <servicedir>%1/services</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/>
  </policy>
</busconfig>
)";

void write(const QString& path, const QString& text)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) file.write(text.toUtf8());
}

}

// Not QDir::tempPath(): a socket's path has only about a hundred bytes.
PrivateBus::PrivateBus() : folder_(QStringLiteral("/tmp/chimewell-bus.XXXXXX"))
{
    QDir(folder_.path()).mkdir(QStringLiteral("services"));
    write(folder_.filePath(QStringLiteral("bus.conf")),
          QString::fromLatin1(configuration).arg(folder_.path()));
    start();
}

PrivateBus::~PrivateBus()
{
    for (const QString& name : std::as_const(connections_))
        QDBusConnection::disconnectFromBus(name);
}

QString PrivateBus::address() const
{
    return QStringLiteral("unix:path=%1/bus").arg(folder_.path());
}

QDBusConnection PrivateBus::connection(const QString& name)
{
    connections_.append(name);
    return QDBusConnection::connectToBus(address(), name);
}

void PrivateBus::disconnect(const QString& name)
{
    QDBusConnection::disconnectFromBus(name);
    connections_.removeAll(name);
}

void PrivateBus::offer(const QString& busName, const QString& command)
{
    write(serviceFile(busName), QStringLiteral("[D-BUS Service]\nName=%1\nExec=%2\n").arg(busName, command));
    reload();
}

void PrivateBus::withdraw(const QString& busName)
{
    QFile::remove(serviceFile(busName));
    reload();
}

void PrivateBus::restart()
{
    daemon_.reset();
    start();
}

void PrivateBus::start()
{
    QFile::remove(folder_.filePath(QStringLiteral("bus")));
    daemon_ = std::make_unique<ChildProcess>(
        QStringLiteral("dbus-daemon"),
        QStringList{QStringLiteral("--config-file=") + folder_.filePath(QStringLiteral("bus.conf")),
                    QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
                    QStringLiteral("--print-address=1")});
    daemon_->readLine(); // the address is printed when the socket listens
}

QString PrivateBus::serviceFile(const QString& busName) const
{
    return folder_.filePath(QStringLiteral("services/%1.service").arg(busName));
}

void PrivateBus::reload()
{
    const auto name = QStringLiteral("chimewell-test-reload");
    const QDBusConnection bus = QDBusConnection::connectToBus(address(), name);
    const auto dbus = QStringLiteral("org.freedesktop.DBus");
    bus.call(QDBusMessage::createMethodCall(dbus, QStringLiteral("/org/freedesktop/DBus"), dbus,
                                            QStringLiteral("ReloadConfig")));
    QDBusConnection::disconnectFromBus(name);
}

}
