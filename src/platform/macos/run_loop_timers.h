// SPDX-License-Identifier: MIT
#pragma once

#include "ports/clock.h"
#include "ports/timers.h"

#include <memory>
#include <set>

namespace chimewell {

class NotificationObserver;

/// Timers on the main run loop. NSTimer stands still while the machine sleeps, so on waking every timer is
/// set anew by the clock. Outlives its timers; main thread only.
class RunLoopTimers final : public Timers {
public:
    /// `clock` outlives the timers.
    explicit RunLoopTimers(const Clock& clock);
    ~RunLoopTimers() override;

    [[nodiscard]] std::unique_ptr<Timer> repeat(std::chrono::milliseconds period,
                                                std::function<void()> tick) override;
    [[nodiscard]] std::unique_ptr<Timer> once(std::chrono::milliseconds delay,
                                              std::function<void()> fire) override;

private:
    struct Schedule;
    /// Shared with the tick that runs, which may destroy its own timer.
    using Shared = std::shared_ptr<Schedule>;
    class Handle;

    std::unique_ptr<Timer> start(std::chrono::nanoseconds delay, std::chrono::nanoseconds period,
                                 std::function<void()> tick);
    void stop(const Shared& schedule);
    void arm(const Shared& schedule);
    void run(const Shared& schedule);
    void armAll();

    const Clock& clock_;
    std::set<Shared> waiting_; ///< Those that will tick.
    std::unique_ptr<NotificationObserver> wake_;
};

}
