// SPDX-License-Identifier: MIT
#pragma once

#include "base/time_point.h"

namespace chimewell {

/// The two times of the system. Dates are for people and files and jump when somebody sets the
/// clock; instants measure how long something has lasted and never go back.
class Clock {
public:
    virtual ~Clock() = default;
    virtual Date now() const = 0;
    /// Goes on while the machine sleeps, so that 90 seconds are 90 seconds of the user's life.
    virtual Instant instant() const = 0;
};

}
