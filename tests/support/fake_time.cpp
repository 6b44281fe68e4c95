// SPDX-License-Identifier: MIT
#include "support/fake_time.h"

#include <algorithm>

namespace chimewell::test {

class FakeTime::Handle : public Timer {
public:
    Handle(FakeTime& time, Key key) : time_(time), key_(key) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() override { time_.timers_.erase(key_); }

private:
    FakeTime& time_;
    Key key_;
};

std::unique_ptr<Timer> FakeTime::once(std::chrono::nanoseconds delay, std::function<void()> fire)
{
    lastDelay_ = delay;
    const Key key(instant_ + std::max(delay, std::chrono::nanoseconds::zero()), ++lastId_);
    timers_.emplace(key, std::move(fire));
    return std::make_unique<Handle>(*this, key);
}

void FakeTime::moveTo(Instant instant)
{
    now_ += std::chrono::duration_cast<Date::duration>(instant - instant_);
    instant_ = instant;
}

void FakeTime::advance(std::chrono::nanoseconds duration)
{
    const Instant end = instant_ + duration;
    while (!timers_.empty() && timers_.begin()->first.first <= end) {
        const auto due = timers_.extract(timers_.begin()); // it may destroy its own timer
        moveTo(std::max(instant_, due.key().first));
        due.mapped()();
    }
    moveTo(end);
}

void FakeTime::sleep(std::chrono::nanoseconds duration)
{
    moveTo(instant_ + duration);
}

}
