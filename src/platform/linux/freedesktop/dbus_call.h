// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <functional>

namespace chimewell {

/// Sends a call without waiting. `done` runs once from the event loop with the reply or with the error that
/// stands for none (also when the bus is gone, or after 20 seconds), unless `context` was destroyed before.
void callAsync(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
               std::function<void(const QDBusMessage& reply)> done);

/// A call of the bus daemon itself.
QDBusMessage busDaemonCall(const char* method);

}
