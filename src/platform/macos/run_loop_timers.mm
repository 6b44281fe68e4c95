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
        timers_.waiting_.insert(this);
        setTimer();
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() override
    {
        timers_.waiting_.erase(this);
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
        timers_.waiting_.erase(this);
        const auto fire = std::move(fire_); // which may destroy this
        fire();
    }

    RunLoopTimers& timers_;
    const Instant due_;
    std::function<void()> fire_;
    NSTimer* timer_ = nil;
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

std::unique_ptr<Timer> RunLoopTimers::once(std::chrono::nanoseconds delay, std::function<void()> fire)
{
    return std::make_unique<Handle>(*this, delay, std::move(fire));
}

}
