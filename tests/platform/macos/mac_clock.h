// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/notification_center.h"
#include "fakes/run_loop.h"
#include "ports/clock.h"

namespace chimewell::test {

/// A clock that goes with the run loop while the Mac is awake, and on its own while it sleeps.
class MacClock : public Clock {
public:
    Date now() const override { return Date(std::chrono::duration_cast<Date::duration>(elapsed())); }
    Instant instant() const override { return Instant(elapsed()); }

    /// Lets the Mac sleep that long and wake.
    void sleep(std::chrono::nanoseconds duration)
    {
        asleep_ += duration;
        mac::machineDidWake();
    }

private:
    std::chrono::nanoseconds elapsed() const
    {
        return std::chrono::hours(500'000) + mac::runLoop().awake + asleep_;
    }

    std::chrono::nanoseconds asleep_{0};
};

}
