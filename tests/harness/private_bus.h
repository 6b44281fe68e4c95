// SPDX-License-Identifier: MIT
#pragma once

#include "harness/private_session.h"

#include <QDBusConnection>
#include <QString>
#include <QStringList>

#include <string>
#include <utility>
#include <vector>

namespace chimewell::test {

/// A session with a message bus, which knows only what the test registers or offers.
class PrivateBus : public PrivateSession {
public:
    /// `programs` are the session's other programs.
    explicit PrivateBus(std::vector<std::string> programs = {})
        : PrivateSession((programs.emplace_back("dbus-daemon"), programs))
    {
    }
    ~PrivateBus()
    {
        for (const QString& name : std::as_const(connections_))
            QDBusConnection::disconnectFromBus(name);
    }

    /// A new connection of that name, which is unique within the process. It is closed with the session.
    QDBusConnection connection(const QString& name)
    {
        connections_.append(name);
        return QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), name);
    }

private:
    QStringList connections_;
};

}
