// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace chimewell {

/// The instant at which a wait is given up.
using Deadline = std::chrono::steady_clock::time_point;

/// Waits until `descriptor` is ready for one of `events` (those of poll), was closed by the other side, or
/// the deadline has come; tells whether it is ready.
bool waitFor(int descriptor, short events, Deadline deadline);

}
