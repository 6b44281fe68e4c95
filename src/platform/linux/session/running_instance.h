// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QStringList>

namespace chimewell {

/// Hands a start of the program over to the instance that runs, or that the bus starts for it: the URLs, or
/// with none the wish to be shown. Waits for the answer, so that the bus does not drop the request of a
/// sender that has left, but only two seconds for an instance that runs: it hangs. False when none took it.
bool handOver(const QDBusConnection& bus, const QStringList& urls);

}
