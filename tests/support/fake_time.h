// SPDX-License-Identifier: MIT
#pragma once

#include "ports/clock.h"
#include "ports/timers.h"

#include <algorithm>
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
    std::unique_ptr<Timer> once(std::chrono::nanoseconds delay, std::function<void()> fire) override
    {
        lastDelay_ = delay;
        const Key key(instant_ + std::max(delay, std::chrono::nanoseconds::zero()), ++lastId_);
        timers_.emplace(key, std::move(fire));
        return std::make_unique<Handle>(timers_, key);
    }

    void advance(std::chrono::nanoseconds duration)
    {
        const Instant end = instant_ + duration;
        while (!timers_.empty() && timers_.begin()->first.first <= end) {
            const auto due = timers_.extract(timers_.begin()); // it may destroy its own timer
            sleep(std::max(instant_, due.key().first) - instant_);
            due.mapped()();
        }
        sleep(end - instant_);
    }
    /// The machine sleeps: what falls due meanwhile fires when time advances again.
    void sleep(std::chrono::nanoseconds duration)
    {
        now_ += std::chrono::duration_cast<Date::duration>(duration);
        instant_ += duration;
    }
    /// Somebody sets the clock; nothing else moves.
    void setDate(Date date) { now_ = date; }
    /// How many timers somebody still holds and that will fire.
    std::size_t runningTimers() const { return timers_.size(); }
    /// The delay of the timer started last.
    std::chrono::nanoseconds lastDelay() const { return lastDelay_; }

private:
    using Key =
        std::pair<Instant, std::uint64_t>; ///< When it is due, and a number that grows with each timer.
    using Running = std::map<Key, std::function<void()>>;

    class Handle : public Timer {
    public:
        Handle(Running& timers, Key key) : timers_(timers), key_(key) {}
        ~Handle() override { timers_.erase(key_); }

    private:
        Running& timers_;
        Key key_;
    };

    Date now_{std::chrono::sys_days{std::chrono::year{2026} / 3 / 1} + std::chrono::hours(14)};
    Instant instant_{std::chrono::hours(1)};
    Running timers_;
    std::uint64_t lastId_ = 0;
    std::chrono::nanoseconds lastDelay_{0};
};

}
