// SPDX-License-Identifier: MIT
#pragma once

#include "base/time_point.h"
#include "platform/posix/file_descriptor.h"
#include "platform/posix/posix_clock.h"
#include "ports/timers.h"

#include <QSocketNotifier>

#include <map>
#include <memory>

namespace chimewell {

/// Timers on Qt's event loop that count the time the machine sleeps (CLOCK_BOOTTIME), which Qt's own do
/// not. All of them share one descriptor, which wakes the process for the next tick and is silent
/// while none runs. Outlives its timers; is made after the application object.
class BootTimers final : public Timers {
public:
    BootTimers();

    [[nodiscard]] std::unique_ptr<Timer> repeat(std::chrono::milliseconds period,
                                                std::function<void()> tick) override;
    [[nodiscard]] std::unique_ptr<Timer> once(std::chrono::milliseconds delay,
                                              std::function<void()> fire) override;

private:
    struct Schedule {
        Instant due;
        std::chrono::nanoseconds period{}; ///< Zero: once.
        std::function<void()> tick;
    };
    /// Shared with the tick that runs, which may destroy its own timer.
    using Shared = std::shared_ptr<Schedule>;
    class Handle;

    std::unique_ptr<Timer> start(std::chrono::nanoseconds delay, std::chrono::nanoseconds period,
                                 std::function<void()> tick);
    void stop(const Shared& schedule);
    void runDue();
    void setAlarm();

    PosixClock clock_;
    FileDescriptor descriptor_;
    QSocketNotifier notifier_;
    std::multimap<Instant, Shared> queue_; ///< By `due`.
};

}
