// SPDX-License-Identifier: MIT
#include "fakes/run_loop.h"

#include "fakes/main_thread.h"
#include "fakes/per_test.h"

#import <Foundation/Foundation.h>

#include <algorithm>
#include <cstddef>
#include <deque>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

using namespace chimewell::test::mac;

const NSRunLoopMode NSRunLoopCommonModes = @"the common modes";

namespace {

/// What other threads may queue.
struct Operations {
    std::mutex mutex;
    std::deque<void (^)(void)> waiting;
};

Operations& operations()
{
    static auto& all = *new Operations;
    return all;
}

struct Timers {
    RunLoop loop;
    std::vector<NSTimer*> scheduled;
    NSOperationQueue* mainQueue = [[NSOperationQueue alloc] init];
    NSRunLoop* mainRunLoop = [[NSRunLoop alloc] init];

    std::string leftover() const { return scheduled.empty() ? "" : "a timer on the run loop"; }
};

PerTest<Timers> state;

std::chrono::nanoseconds nanoseconds(NSTimeInterval seconds)
{
    // Foundation takes the smallest of its intervals where one is asked for that is not positive.
    return std::chrono::round<std::chrono::nanoseconds>(
        std::chrono::duration<double>(seconds > 0 ? seconds : 0.0001));
}

}

@implementation NSOperationQueue

+ (NSOperationQueue*)mainQueue
{
    return state->mainQueue;
}

- (void)addOperationWithBlock:(void (^)(void))block
{
    if (self != state->mainQueue) { // on a thread of its own, which has ended before anybody looks
        std::thread([block] {
            @autoreleasepool {
                block();
            }
        }).join();
        return;
    }
    const std::scoped_lock locked(operations().mutex);
    operations().waiting.push_back(block);
}

@end

@implementation NSTimer {
@public
    std::chrono::nanoseconds due_;
    std::chrono::nanoseconds interval_;
    BOOL repeats_;
    BOOL invalid_;
    void (^block_)(NSTimer*);
}

+ (NSTimer*)timerWithTimeInterval:(NSTimeInterval)interval
                          repeats:(BOOL)repeats
                            block:(void (^)(NSTimer*))block
{
    NSTimer* const timer = [[self alloc] init];
    timer->interval_ = nanoseconds(interval);
    timer->due_ = state->loop.awake + timer->interval_;
    timer->repeats_ = repeats;
    timer->block_ = block;
    return timer;
}

/// The run loop lets the timer go. That the timer then lets its block go is promised nowhere.
- (void)invalidate
{
    requireMainThread("-[NSTimer invalidate]");
    invalid_ = YES;
    std::erase_if(state->scheduled, [&](NSTimer* timer) { return timer == self; });
}

- (void)fire
{
    // Firings that were missed together are one.
    while (due_ <= state->loop.awake)
        due_ += interval_;
    block_(self);
    if (!repeats_) [self invalidate];
}

@end

@implementation NSRunLoop

+ (NSRunLoop*)mainRunLoop
{
    return state->mainRunLoop;
}

/// The loop retains the timer. In any but the common modes it would stand still while a menu is open.
- (void)addTimer:(NSTimer*)timer forMode:(NSRunLoopMode)mode
{
    requireMainThread("-[NSRunLoop addTimer:forMode:]");
    if (!timer->invalid_ && [mode isEqualToString:NSRunLoopCommonModes]) state->scheduled.push_back(timer);
}

@end

namespace chimewell::test::mac {

RunLoop& runLoop()
{
    return state->loop;
}

std::size_t RunLoop::timers() const
{
    return state->scheduled.size();
}

void RunLoop::turn()
{
    requireMainThread("the main run loop");
    while (true) {
        @autoreleasepool {
            void (^next)(void) = nil;
            {
                const std::scoped_lock locked(operations().mutex);
                if (operations().waiting.empty()) return;
                next = operations().waiting.front();
                operations().waiting.pop_front();
            }
            next();
        }
    }
}

void RunLoop::advance(std::chrono::nanoseconds duration)
{
    const std::chrono::nanoseconds end = awake + duration;
    turn();
    while (!state->scheduled.empty()) {
        @autoreleasepool {
            NSTimer* const next =
                *std::ranges::min_element(state->scheduled, {}, [](NSTimer* timer) { return timer->due_; });
            if (next->due_ > end) break;
            awake = std::max(awake, next->due_);
            [next fire];
        }
        turn();
    }
    awake = end;
}

}
