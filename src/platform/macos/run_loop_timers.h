// SPDX-License-Identifier: MIT
#pragma once

#include "ports/clock.h"
#include "ports/timers.h"

#include <memory>
#include <set>

namespace chimewell {

class NotificationObserver;

/// Timers on the main run loop. NSTimer stands still while the Mac sleeps, so on waking every timer is set
/// anew by the clock. While a timer runs, the application takes no App Nap. Outlives its timers; main thread
/// only.
class RunLoopTimers final : public Timers {
public:
    /// `clock` outlives the timers.
    explicit RunLoopTimers(const Clock& clock);
    ~RunLoopTimers() override;

    [[nodiscard]] std::unique_ptr<Timer> once(std::chrono::nanoseconds delay,
                                              std::function<void()> fire) override;

private:
    class Handle;
    class Activity;

    void insert(Handle* timer);
    void erase(Handle* timer);

    const Clock& clock_;
    std::set<Handle*> waiting_;          ///< Those that will fire.
    std::unique_ptr<Activity> activity_; ///< While there are any.
    std::unique_ptr<NotificationObserver> wake_;
};

}
