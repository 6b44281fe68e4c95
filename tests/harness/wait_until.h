// SPDX-License-Identifier: MIT
#pragma once

#include <QTest>

#include <chrono>

namespace chimewell::test {

/// Runs the event loop until `condition` holds. False when it still does not after `limit`, which is
/// generous: it ends a failing test and times nothing.
template<typename Condition>
bool waitUntil(Condition condition, std::chrono::milliseconds limit = std::chrono::seconds(30))
{
    return QTest::qWaitFor(condition, static_cast<int>(limit.count()));
}

}
