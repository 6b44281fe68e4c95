// SPDX-License-Identifier: MIT
#include "platform/macos/run_loop_timers.h"

#include "platform/macos/notification_observer.h"

#import <AppKit/AppKit.h>

#include <algorithm>
#include <utility>

namespace chimewell {

struct RunLoopTimers::Schedule {
    Instant due;
    std::chrono::nanoseconds period{}; ///< Zero: once.
    std::function<void()> tick;
    NSTimer* timer = nil; ///< Rings once, at `due`.
};

class RunLoopTimers::Handle final : public Timer {
public:
    Handle(RunLoopTimers& timers, Shared schedule) : timers_(timers), schedule_(std::move(schedule)) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() override { timers_.stop(schedule_); }

private:
    RunLoopTimers& timers_;
    Shared schedule_;
};

RunLoopTimers::RunLoopTimers(const Clock& clock)
    : clock_(clock),
      wake_(std::make_unique<NotificationObserver>(NSWorkspace.sharedWorkspace.notificationCenter,
                                                   NSWorkspaceDidWakeNotification, [this] { armAll(); }))
{
}

RunLoopTimers::~RunLoopTimers() = default;

std::unique_ptr<Timer> RunLoopTimers::repeat(std::chrono::milliseconds period, std::function<void()> tick)
{
    period = std::max(period, std::chrono::milliseconds(1)); // zero would never let the run loop go on
    return start(period, period, std::move(tick));
}

std::unique_ptr<Timer> RunLoopTimers::once(std::chrono::milliseconds delay, std::function<void()> fire)
{
    return start(delay, std::chrono::nanoseconds::zero(), std::move(fire));
}

std::unique_ptr<Timer> RunLoopTimers::start(std::chrono::nanoseconds delay, std::chrono::nanoseconds period,
                                            std::function<void()> tick)
{
    auto schedule = std::make_shared<Schedule>(clock_.instant() + delay, period, std::move(tick), nil);
    waiting_.insert(schedule);
    arm(schedule);
    return std::make_unique<Handle>(*this, std::move(schedule));
}

void RunLoopTimers::stop(const Shared& schedule)
{
    waiting_.erase(schedule);
    [schedule->timer invalidate];
}

void RunLoopTimers::arm(const Shared& schedule)
{
    [schedule->timer invalidate];
    const std::chrono::duration<double> left = schedule->due - clock_.instant();
    const std::weak_ptr<Schedule> weak = schedule; // the schedule holds the timer, which holds the block
    schedule->timer = [NSTimer timerWithTimeInterval:std::max(left.count(), 0.0)
                                             repeats:NO
                                               block:^(NSTimer*) {
                                                   if (const Shared due = weak.lock()) run(due);
                                               }];
    // Also while the user drags a window or holds a menu open.
    [NSRunLoop.mainRunLoop addTimer:schedule->timer forMode:NSRunLoopCommonModes];
}

void RunLoopTimers::run(const Shared& schedule)
{
    if (schedule->period > std::chrono::nanoseconds::zero()) {
        const auto late = std::max(clock_.instant() - schedule->due, std::chrono::nanoseconds::zero());
        const auto missed = late / schedule->period; // while the machine slept
        schedule->due += schedule->period * (missed + 1);
        arm(schedule); // before the tick, which may stop this timer
    } else {
        waiting_.erase(schedule);
    }
    schedule->tick();
}

void RunLoopTimers::armAll()
{
    for (const Shared& schedule : waiting_)
        arm(schedule);
}

}
