// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace chimewell {

/// A moment on the calendar (UTC), as the user's clock shows it.
using Date = std::chrono::sys_time<std::chrono::microseconds>;

/// The date in UTC to whole seconds, for example 2026-03-01T09:05:00Z (ISO 8601, RFC 3339).
std::string iso8601(Date date);

/// Reads that form, also with fractional seconds and with an offset such as +02:00 or +0200.
std::optional<Date> parseIso8601(std::string_view text);

/// Tag of the time line that never jumps and goes on while the machine sleeps. Its zero is arbitrary.
struct ContinuousTime {
    using rep = std::chrono::nanoseconds::rep;
    using period = std::chrono::nanoseconds::period;
    using duration = std::chrono::nanoseconds;
    using time_point = std::chrono::time_point<ContinuousTime>;
    static constexpr bool is_steady = true; // NOLINT(readability-identifier-naming): the standard's name
};

/// A moment to measure intervals from; two of them are comparable within one run only.
using Instant = ContinuousTime::time_point;

}
