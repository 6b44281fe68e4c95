// SPDX-License-Identifier: MIT
#include "platform/macos/run_loop_timers.h"

#include "platform/macos/foundation.h"

#import <AppKit/AppKit.h>

#include <algorithm>
#include <utility>

namespace chimewell {

class RunLoopTimers::Handle final : public Timer {
public:
    Handle(RunLoopTimers& timers, std::chrono::nanoseconds delay, std::function<void()> fire)
        : timers_(timers),
          due_(timers.clock_.instant() + delay),
          fire_(std::move(fire))
    {
        timers_.insert(this);
        setTimer();
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() override
    {
        timers_.erase(this);
        [timer_ invalidate];
    }

    /// By what the clock says now.
    void setTimer()
    {
        [timer_ invalidate];
        const std::chrono::duration<double> left = due_ - timers_.clock_.instant();
        // The handle invalidates the timer before it is destroyed.
        timer_ = [NSTimer timerWithTimeInterval:std::max(left.count(), 0.0)
                                        repeats:NO
                                          block:^(NSTimer*) {
                                              ring();
                                          }];
        // Also while the user drags a window or holds a menu open.
        [NSRunLoop.mainRunLoop addTimer:timer_ forMode:NSRunLoopCommonModes];
    }

private:
    void ring()
    {
        timers_.erase(this);
        const auto fire = std::move(fire_); // which may destroy this
        fire();
    }

    RunLoopTimers& timers_;
    const Instant due_;
    std::function<void()> fire_;
    NSTimer* timer_ = nil;
};

/// While it exists, macOS runs our timers in time. It delays those of other applications without a visible
/// window ("App Nap"). The Mac may still go to sleep.
class RunLoopTimers::Activity {
public:
    Activity() = default;
    Activity(const Activity&) = delete;
    Activity& operator=(const Activity&) = delete;
    ~Activity() { [NSProcessInfo.processInfo endActivity:token_]; }

private:
    id<NSObject> token_ =
        [NSProcessInfo.processInfo beginActivityWithOptions:NSActivityUserInitiatedAllowingIdleSystemSleep
                                                     reason:@"A reminder is due"];
};

RunLoopTimers::RunLoopTimers(const Clock& clock)
    : clock_(clock),
      wake_(std::make_unique<NotificationObserver>(NSWorkspace.sharedWorkspace.notificationCenter,
                                                   NSWorkspaceDidWakeNotification, [this] {
                                                       for (Handle* const timer : waiting_)
                                                           timer->setTimer();
                                                   }))
{
}

RunLoopTimers::~RunLoopTimers() = default;

void RunLoopTimers::insert(Handle* timer)
{
    waiting_.insert(timer);
    if (!activity_) activity_ = std::make_unique<Activity>();
}

void RunLoopTimers::erase(Handle* timer)
{
    waiting_.erase(timer);
    if (waiting_.empty()) activity_.reset();
}

std::unique_ptr<Timer> RunLoopTimers::once(std::chrono::nanoseconds delay, std::function<void()> fire)
{
    return std::make_unique<Handle>(*this, delay, std::move(fire));
}

}
