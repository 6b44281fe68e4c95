// SPDX-License-Identifier: MIT
#pragma once

#include "harness/private_session.h"

#include <QDBusConnection>
#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace chimewell::test {

/// A session with a message bus, which knows only what the test registers or offers.
class PrivateBus : public PrivateSession {
public:
    /// `others` are the session's other programs.
    explicit PrivateBus(std::vector<std::string> others = {});
    ~PrivateBus();

    /// A new connection of that name, which is unique within the process. It is closed with the session.
    QDBusConnection connection(const QString& name);
    void disconnect(const QString& name);

private:
    QStringList connections_;
};

}
