// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace chimewell {

/// A running timer. Destroying it stops it; a stopped timer never fires.
class Timer {
public:
    virtual ~Timer() = default;
};

/// Starts timers on the main event loop.
class Timers {
public:
    virtual ~Timers() = default;
    /// Calls `fire` once, from the event loop, when `Clock::instant` has moved on by `delay`: the time that
    /// the machine sleeps counts, and what fell due meanwhile fires on waking. A `delay` of zero or less
    /// fires in the next turn of the loop. `fire` may destroy its own timer.
    [[nodiscard]] virtual std::unique_ptr<Timer> once(std::chrono::nanoseconds delay,
                                                      std::function<void()> fire) = 0;
};

}
