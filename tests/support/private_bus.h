// SPDX-License-Identifier: MIT
#pragma once

#include "support/child_process.h"

#include <QDBusConnection>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

namespace chimewell::test {

/// A message bus of the test's own. It knows none of the machine's services: only what the test registers
/// or offers is there.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();

    /// False when no bus daemon could be started; the test then skips.
    bool isRunning() const { return daemon_ && daemon_->isRunning(); }
    /// For DBUS_SESSION_BUS_ADDRESS; the same after a restart.
    QString address() const;
    /// A new connection of that name, which is unique within the process. It is closed with the bus.
    QDBusConnection connection(const QString& name);
    void disconnect(const QString& name);
    /// From now on the first call to `busName` starts `command`, in the environment of the test at the time
    /// the bus was started.
    void offer(const QString& busName, const QString& command);
    void withdraw(const QString& busName);
    /// The bus goes away with all connections to it, and comes again empty.
    void restart();

private:
    void start();
    QString serviceFile(const QString& busName) const;
    void reload();

    QTemporaryDir folder_;
    QStringList connections_;
    std::unique_ptr<ChildProcess> daemon_;
};

}
