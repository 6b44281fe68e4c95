// SPDX-License-Identifier: MIT
#pragma once

#include "ports/clock.h"

#include <time.h>

namespace chimewell {

class PosixClock final : public Clock {
public:
    Date now() const override { return Date(std::chrono::floor<Date::duration>(read(CLOCK_REALTIME))); }
    Instant instant() const override { return Instant(read(continuousClock)); }

private:
#ifdef CLOCK_BOOTTIME
    static constexpr clockid_t continuousClock = CLOCK_BOOTTIME;
#else
    static constexpr clockid_t continuousClock = CLOCK_MONOTONIC; // on macOS it includes sleep
#endif

    static std::chrono::nanoseconds read(clockid_t clock)
    {
        timespec time = {};
        ::clock_gettime(clock, &time);
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    }
};

}
