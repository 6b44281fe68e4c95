// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariant>

#include <functional>

namespace chimewell {

/// Sends a call without waiting. `done` runs once from the event loop with the reply, or with an error when
/// there is no bus or no answer within 20 seconds. It does not run once `context` is destroyed.
void callAsync(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
               std::function<void(const QDBusMessage& reply)> done);

/// A call to the bus daemon itself.
QDBusMessage busDaemonCall(const char* method);

/// The first argument of a reply. Invalid when the reply is an error or has no arguments.
QVariant firstArgument(const QDBusMessage& reply);

/// Whether a call certainly had no effect, so that another way may be tried. A call that was not answered in
/// time may still be carried out: trying another way then would show two windows.
bool isRefusal(const QDBusMessage& reply);

}
