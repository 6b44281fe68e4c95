// SPDX-License-Identifier: MIT
#pragma once

#include "ports/clock.h"
#include "ports/timers.h"

#include <cstddef>
#include <cstdint>
#include <map>

namespace chimewell::test {

/// Clock and timers in one: advancing it moves the date and runs what falls due, in order.
class FakeTime : public Clock, public Timers {
public:
    Date now() const override { return now_; }
    Instant instant() const override { return instant_; }
    std::unique_ptr<Timer> repeat(std::chrono::milliseconds period, std::function<void()> tick) override
    {
        return start(period, true, std::move(tick));
    }
    std::unique_ptr<Timer> once(std::chrono::milliseconds delay, std::function<void()> fire) override
    {
        return start(delay, false, std::move(fire));
    }

    void advance(std::chrono::nanoseconds duration);
    /// Somebody sets the clock; nothing else moves.
    void setDate(Date date) { now_ = date; }
    /// How many timers somebody still holds and that may tick again.
    std::size_t runningTimers() const { return timers_.size(); }
    /// The period of the timer started last.
    std::chrono::milliseconds lastPeriod() const { return lastPeriod_; }

private:
    struct Running {
        Instant due;
        std::chrono::milliseconds period;
        bool repeats = false;
        std::function<void()> tick;
    };
    class Handle;

    std::unique_ptr<Timer> start(std::chrono::milliseconds period, bool repeats, std::function<void()> tick);
    void moveTo(Instant instant);

    Date now_{std::chrono::sys_days{std::chrono::year{2026} / 3 / 1} + std::chrono::hours(14)};
    Instant instant_{std::chrono::hours(1)};
    std::map<std::uint64_t, Running> timers_;
    std::uint64_t lastId_ = 0;
    std::chrono::milliseconds lastPeriod_{0};
};

}
