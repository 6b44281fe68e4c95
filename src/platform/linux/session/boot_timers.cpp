// SPDX-License-Identifier: MIT
#include "platform/linux/session/boot_timers.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>

namespace chimewell {

class BootTimers::Handle final : public Timer {
public:
    Handle(BootTimers& timers, Key key) : timers_(timers), key_(key) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() override
    {
        // Nothing is erased when it has fired.
        if (timers_.queue_.erase(key_) > 0) timers_.setAlarm();
    }

private:
    BootTimers& timers_;
    Key key_;
};

BootTimers::BootTimers()
    : descriptor_(::timerfd_create(CLOCK_BOOTTIME, TFD_NONBLOCK | TFD_CLOEXEC)),
      notifier_(descriptor_.get(), QSocketNotifier::Read)
{
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { runDue(); });
}

std::unique_ptr<Timer> BootTimers::once(std::chrono::nanoseconds delay, std::function<void()> fire)
{
    const Key key(clock_.instant() + std::max(delay, std::chrono::nanoseconds::zero()), ++lastId_);
    queue_.emplace(key, std::move(fire));
    setAlarm();
    return std::make_unique<Handle>(*this, key);
}

void BootTimers::runDue()
{
    std::uint64_t expirations = 0;
    if (::read(descriptor_.get(), &expirations, sizeof expirations) < 0) return; // set anew since it rang
    // Timers that are started meanwhile wait for the next turn of the event loop.
    const Key end(clock_.instant(), lastId_);
    while (!queue_.empty() && queue_.begin()->first <= end) {
        // It is out of the queue before it runs: it may start or stop timers, or run an event loop.
        const auto due = queue_.extract(queue_.begin());
        setAlarm();
        due.mapped()();
    }
}

void BootTimers::setAlarm()
{
    itimerspec alarm = {}; // all zero: not armed
    if (!queue_.empty()) {
        // Zero would disarm it; a moment that has passed rings at once.
        const auto due =
            std::max(queue_.begin()->first.first.time_since_epoch(), std::chrono::nanoseconds(1));
        const auto seconds = std::chrono::floor<std::chrono::seconds>(due);
        alarm.it_value.tv_sec = seconds.count();
        alarm.it_value.tv_nsec = (due - seconds).count();
    }
    ::timerfd_settime(descriptor_.get(), TFD_TIMER_ABSTIME, &alarm, nullptr);
}

}
