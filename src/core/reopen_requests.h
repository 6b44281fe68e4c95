// SPDX-License-Identifier: MIT
#pragma once

#include "ports/clock.h"
#include "ports/timers.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

namespace chimewell {

/// Tells the user who starts the running application again from the requests to reopen that macOS sends on
/// its own: with a click on a banner, with a URL, and seconds after waking. Windows that these opened would
/// cover the terminal that the user is going to.
class ReopenRequests {
public:
    ReopenRequests(const Clock& clock, Timers& timers) : clock_(clock), timers_(timers) {}

    /// Runs when the user reopened the application; set once at start-up.
    std::function<void()> onUserReopen;

    /// The system asks to reopen the application. If nothing explains the request otherwise,
    /// `onUserReopen` runs after `settlingTime`.
    void request();

    enum class Cause : std::uint8_t { url, banner, wake };
    /// Explains the request that is waiting, and those of the next seconds.
    void explain(Cause cause);

    static constexpr std::chrono::milliseconds settlingTime{500};
    /// How long after its cause a request of the system's own comes at the latest. Users report two to four
    /// seconds after waking.
    static constexpr std::chrono::seconds afterWake{10};
    static constexpr std::chrono::seconds afterOthers{1};

private:
    const Clock& clock_;
    Timers& timers_;
    Instant explainedUntil_ = Instant::min();
    std::unique_ptr<Timer> waiting_;
};

}
