// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>

namespace chimewell::test::mac {

/// The main run loop, turned by hand, in a time of its own that stands still while the machine sleeps.
struct RunLoop {
    std::chrono::nanoseconds awake{0}; ///< How long the machine has been awake.

    /// How many timers it holds.
    std::size_t timers() const;
    /// Runs what was queued for the main thread, and what that queues, until nothing is left.
    void turn();
    /// Lets time pass: timers that fall due fire in order, and after each the loop turns.
    void advance(std::chrono::nanoseconds duration);
};

RunLoop& runLoop();

}
