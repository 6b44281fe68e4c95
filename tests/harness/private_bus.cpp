// SPDX-License-Identifier: MIT
#include "harness/private_bus.h"

#include <utility>

namespace chimewell::test {
namespace {

std::vector<std::string> withBus(std::vector<std::string> programs)
{
    programs.emplace_back("dbus-daemon");
    return programs;
}

}

PrivateBus::PrivateBus(std::vector<std::string> others) : PrivateSession(withBus(std::move(others))) {}

PrivateBus::~PrivateBus()
{
    for (const QString& name : std::as_const(connections_))
        QDBusConnection::disconnectFromBus(name);
}

QDBusConnection PrivateBus::connection(const QString& name)
{
    connections_.append(name);
    return QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), name);
}

void PrivateBus::disconnect(const QString& name)
{
    QDBusConnection::disconnectFromBus(name);
    connections_.removeAll(name);
}

}
