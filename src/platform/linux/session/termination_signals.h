// SPDX-License-Identifier: MIT
#pragma once

#include <QSocketNotifier>

#include <functional>

namespace chimewell {

/// Turns SIGTERM, SIGHUP and SIGINT into a call on the event loop. At most one object at a time; its
/// destruction restores the default handlers.
class TerminationSignals {
public:
    explicit TerminationSignals(std::function<void()> terminate);
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;
    ~TerminationSignals();

private:
    QSocketNotifier notifier_;
};

}
