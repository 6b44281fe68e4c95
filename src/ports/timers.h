// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace chimewell {

/// A running timer. Destroying it stops it; a stopped timer never ticks again.
class Timer {
public:
    virtual ~Timer() = default;
};

/// Starts timers on the main event loop. Their periods go on while the machine sleeps; a timer that
/// came due several times meanwhile ticks once on waking.
class Timers {
public:
    virtual ~Timers() = default;
    /// Calls `tick` once per `period`, first after one full period, until the returned timer is
    /// destroyed. `tick` may destroy its own timer.
    [[nodiscard]] virtual std::unique_ptr<Timer> repeat(std::chrono::milliseconds period,
                                                        std::function<void()> tick) = 0;
    /// Calls `fire` once after `delay`, unless the returned timer is destroyed before. `fire` may
    /// destroy its own timer.
    [[nodiscard]] virtual std::unique_ptr<Timer> once(std::chrono::milliseconds delay,
                                                      std::function<void()> fire) = 0;
};

}
