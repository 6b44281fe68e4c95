// SPDX-License-Identifier: MIT
#include "fakes/notification_center.h"

#include "fakes/per_test.h"

#import <AppKit/AppKit.h>

#include <algorithm>
#include <string>
#include <vector>

const NSNotificationName NSApplicationDidBecomeActiveNotification = @"NSApplicationDidBecomeActive";
const NSNotificationName NSApplicationWillFinishLaunchingNotification = @"NSApplicationWillFinishLaunching";
const NSNotificationName NSWorkspaceDidWakeNotification = @"NSWorkspaceDidWake";

@implementation NSNotification

@synthesize name = name_;

- (instancetype)initWithName:(NSString*)name
{
    self = [super init];
    name_ = name;
    return self;
}

- (id)copyWithZone:(struct _NSZone*)zone
{
    return self;
}

@end

/// An observation; the centre keeps it, and with it the block, until it is removed.
@interface Observation : NSObject {
@public
    NSString* name;
    void (^block)(NSNotification*);
}
@end

@implementation Observation
@end

namespace {

NSNotificationCenter* applicationCenter();

}

@implementation NSNotificationCenter {
@public
    std::vector<Observation*> observations_;
}

+ (NSNotificationCenter*)defaultCenter
{
    return applicationCenter();
}

- (id<NSObject>)addObserverForName:(NSNotificationName)name
                            object:(id)object
                             queue:(NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification*))block
{
    Observation* const added = [[Observation alloc] init];
    added->name = name;
    added->block = block;
    observations_.push_back(added);
    return added;
}

- (void)removeObserver:(id)observer
{
    std::erase_if(observations_, [&](Observation* known) { return known == observer; });
}

/// Observers are called in the order of their registration; one that is removed meanwhile is not called.
- (void)post:(NSString*)name
{
    for (const auto& observation : std::vector<Observation*>(observations_)) {
        if (std::ranges::find(observations_, observation) == observations_.end()) continue;
        if (!observation->name || [observation->name isEqualToString:name])
            observation->block([[NSNotification alloc] initWithName:name]);
    }
}

@end

namespace {

struct Centers {
    NSNotificationCenter* application = [[NSNotificationCenter alloc] init];
    NSNotificationCenter* workspace = [[NSNotificationCenter alloc] init];

    std::string leftover() const
    {
        const bool observed = !application->observations_.empty() || !workspace->observations_.empty();
        return observed ? "an observer of notifications" : "";
    }
};

chimewell::test::mac::PerTest<Centers> centers;

}

namespace {

NSNotificationCenter* applicationCenter()
{
    return centers->application;
}

}

namespace chimewell::test::mac {

NSNotificationCenter* workspaceNotificationCenter()
{
    return centers->workspace;
}

void applicationWillFinishLaunching()
{
    [centers->application post:NSApplicationWillFinishLaunchingNotification];
}

void applicationDidBecomeActive()
{
    [centers->application post:NSApplicationDidBecomeActiveNotification];
}

void machineDidWake()
{
    [centers->workspace post:NSWorkspaceDidWakeNotification];
}

}
