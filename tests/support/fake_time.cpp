// SPDX-License-Identifier: MIT
#include "support/fake_time.h"

#include <algorithm>
#include <utility>

namespace chimewell::test {

class FakeTime::Handle : public Timer {
public:
    Handle(FakeTime& time, std::uint64_t id) : time_(time), id_(id) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() override { time_.timers_.erase(id_); }

private:
    FakeTime& time_;
    std::uint64_t id_;
};

std::unique_ptr<Timer> FakeTime::start(std::chrono::milliseconds period, bool repeats,
                                       std::function<void()> tick)
{
    lastPeriod_ = period;
    timers_.emplace(++lastId_, Running{instant_ + period, period, repeats, std::move(tick)});
    return std::make_unique<Handle>(*this, lastId_);
}

void FakeTime::moveTo(Instant instant)
{
    now_ += std::chrono::duration_cast<Date::duration>(instant - instant_);
    instant_ = instant;
}

void FakeTime::advance(std::chrono::nanoseconds duration)
{
    const Instant end = instant_ + duration;
    while (!timers_.empty()) {
        const auto next = std::ranges::min_element(
            timers_, {}, [](const auto& timer) { return std::pair(timer.second.due, timer.first); });
        if (next->second.due > end) break;
        moveTo(next->second.due);
        const auto tick = next->second.tick; // it may destroy its own timer
        if (next->second.repeats)
            next->second.due += next->second.period;
        else
            timers_.erase(next);
        tick();
    }
    moveTo(end);
}

}
