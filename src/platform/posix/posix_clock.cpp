// SPDX-License-Identifier: MIT
#include "platform/posix/posix_clock.h"

#include <time.h>

namespace chimewell {

namespace {

#ifdef CLOCK_BOOTTIME
constexpr clockid_t continuousClock = CLOCK_BOOTTIME;
#else
constexpr clockid_t continuousClock = CLOCK_MONOTONIC; // macOS counts sleep in this one
#endif

std::chrono::nanoseconds read(clockid_t clock)
{
    timespec time = {};
    ::clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

}

Date PosixClock::now() const
{
    return Date(std::chrono::floor<Date::duration>(read(CLOCK_REALTIME)));
}

Instant PosixClock::instant() const
{
    return Instant(read(continuousClock));
}

}
