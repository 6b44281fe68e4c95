// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusError>
#include <QDBusMessage>

namespace chimewell {

/// Whether a call certainly had no effect, so that another way may be tried. One that was not answered in
/// time may still be carried out: doing it again would show two windows.
inline bool isRefusal(const QDBusMessage& reply)
{
    if (reply.type() != QDBusMessage::ErrorMessage) return false;
    const QDBusError::ErrorType error = QDBusError(reply).type();
    return error != QDBusError::NoReply && error != QDBusError::Timeout && error != QDBusError::TimedOut;
}

}
