// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <chrono>

namespace chimewell::test {

/// Runs the event loop until `condition` holds. False when it still does not after `limit`, which is
/// generous: it ends a failing test and times nothing.
template<typename Condition>
bool waitUntil(Condition condition, std::chrono::milliseconds limit = std::chrono::seconds(30))
{
    const QDeadlineTimer deadline(limit);
    QTimer wakeUp; // for conditions that become true outside this process
    wakeUp.start(std::chrono::milliseconds(5));
    while (!condition()) {
        if (deadline.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

}
