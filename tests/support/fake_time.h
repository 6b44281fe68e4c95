// SPDX-License-Identifier: MIT
#pragma once

#include "ports/clock.h"
#include "ports/timers.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace chimewell::test {

/// Clock and timers in one: advancing it moves the date and runs what falls due, in order.
class FakeTime : public Clock, public Timers {
public:
    Date now() const override { return now_; }
    Instant instant() const override { return instant_; }
    std::unique_ptr<Timer> once(std::chrono::nanoseconds delay, std::function<void()> fire) override;

    void advance(std::chrono::nanoseconds duration);
    /// The machine sleeps: what falls due meanwhile fires when time advances again.
    void sleep(std::chrono::nanoseconds duration);
    /// Somebody sets the clock; nothing else moves.
    void setDate(Date date) { now_ = date; }
    /// How many timers somebody still holds and that will fire.
    std::size_t runningTimers() const { return timers_.size(); }
    /// The delay of the timer started last.
    std::chrono::nanoseconds lastDelay() const { return lastDelay_; }

private:
    using Key =
        std::pair<Instant, std::uint64_t>; ///< When it is due, and a number that grows with each timer.
    class Handle;

    void moveTo(Instant instant);

    Date now_{std::chrono::sys_days{std::chrono::year{2026} / 3 / 1} + std::chrono::hours(14)};
    Instant instant_{std::chrono::hours(1)};
    std::map<Key, std::function<void()>> timers_;
    std::uint64_t lastId_ = 0;
    std::chrono::nanoseconds lastDelay_{0};
};

}
