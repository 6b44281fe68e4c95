// SPDX-License-Identifier: MIT
#pragma once

#include "base/date_time.h"

namespace chimewell {

/// The two clocks of the system. Dates are for people and files, and jump when the clock is set. Instants
/// measure durations and never go back.
class Clock {
public:
    virtual ~Clock() = default;
    virtual Date now() const = 0;
    /// Includes the time that the machine sleeps.
    virtual Instant instant() const = 0;
};

}
