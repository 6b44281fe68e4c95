// SPDX-License-Identifier: MIT
#pragma once

#include "base/date_time.h"
#include "platform/posix/file_descriptor.h"
#include "platform/posix/posix_clock.h"
#include "ports/timers.h"

#include <QSocketNotifier>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace chimewell {

/// Timers on Qt's event loop that count the time the machine sleeps (CLOCK_BOOTTIME), which Qt's own do not.
/// All of them share one descriptor, which wakes the process for the next one and is not armed while there is
/// none. Outlives its timers; is made after the application object.
class BootTimers final : public Timers {
public:
    BootTimers();

    [[nodiscard]] std::unique_ptr<Timer> once(std::chrono::nanoseconds delay,
                                              std::function<void()> fire) override;

private:
    using Key =
        std::pair<Instant, std::uint64_t>; ///< When it is due, and a number that grows with each timer.
    class Handle;

    void runDue();
    void setAlarm();

    PosixClock clock_;
    FileDescriptor descriptor_;
    QSocketNotifier notifier_;
    std::map<Key, std::function<void()>> queue_;
    std::uint64_t lastId_ = 0;
};

}
