// SPDX-License-Identifier: MIT
#include "platform/linux/session/boot_timers.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace chimewell {

class BootTimers::Handle final : public Timer {
public:
    Handle(BootTimers& timers, Shared schedule) : timers_(timers), schedule_(std::move(schedule)) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() override { timers_.stop(schedule_); }

private:
    BootTimers& timers_;
    Shared schedule_;
};

BootTimers::BootTimers()
    : descriptor_(::timerfd_create(CLOCK_BOOTTIME, TFD_NONBLOCK | TFD_CLOEXEC)),
      notifier_(descriptor_.get(), QSocketNotifier::Read)
{
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { runDue(); });
}

std::unique_ptr<Timer> BootTimers::repeat(std::chrono::milliseconds period, std::function<void()> tick)
{
    period = std::max(period, std::chrono::milliseconds(1)); // zero would never let the event loop go on
    return start(period, period, std::move(tick));
}

std::unique_ptr<Timer> BootTimers::once(std::chrono::milliseconds delay, std::function<void()> fire)
{
    return start(delay, std::chrono::nanoseconds::zero(), std::move(fire));
}

std::unique_ptr<Timer> BootTimers::start(std::chrono::nanoseconds delay, std::chrono::nanoseconds period,
                                         std::function<void()> tick)
{
    auto schedule = std::make_shared<Schedule>(clock_.instant() + delay, period, std::move(tick));
    queue_.emplace(schedule->due, schedule);
    setAlarm();
    return std::make_unique<Handle>(*this, std::move(schedule));
}

void BootTimers::stop(const Shared& schedule)
{
    const auto [first, last] = queue_.equal_range(schedule->due);
    const auto found = std::find_if(first, last, [&](const auto& entry) { return entry.second == schedule; });
    if (found == last) return;
    queue_.erase(found);
    setAlarm();
}

void BootTimers::runDue()
{
    std::uint64_t expirations = 0;
    if (::read(descriptor_.get(), &expirations, sizeof expirations) < 0) return; // set anew since it rang
    const Instant now = clock_.instant();
    while (!queue_.empty() && queue_.begin()->first <= now) {
        const Shared schedule = queue_.begin()->second;
        queue_.erase(queue_.begin());
        if (schedule->period > std::chrono::nanoseconds::zero()) {
            const auto missed = (now - schedule->due) / schedule->period; // while the machine slept
            schedule->due += schedule->period * (missed + 1);
            queue_.emplace(schedule->due, schedule);
        }
        // The queue is in order again before the tick, which may start or stop timers or run an event loop.
        setAlarm();
        schedule->tick();
    }
}

void BootTimers::setAlarm()
{
    itimerspec alarm = {}; // all zero: silent
    if (!queue_.empty()) {
        // Zero would mean silence here; a moment that has passed rings at once.
        const auto due = std::max(queue_.begin()->first.time_since_epoch(), std::chrono::nanoseconds(1));
        const auto seconds = std::chrono::floor<std::chrono::seconds>(due);
        alarm.it_value.tv_sec = seconds.count();
        alarm.it_value.tv_nsec = (due - seconds).count();
    }
    ::timerfd_settime(descriptor_.get(), TFD_TIMER_ABSTIME, &alarm, nullptr);
}

}
