// SPDX-License-Identifier: MIT
#pragma once

#import <AppKit/NSResponder.h>
#import <AppKit/NSRunningApplication.h>

#pragma clang assume_nonnull begin

NS_EXTERN const NSNotificationName NSApplicationDidBecomeActiveNotification;
NS_EXTERN const NSNotificationName NSApplicationWillFinishLaunchingNotification;

@interface NSApplication : NSResponder
@property (class, readonly, strong) NSApplication* sharedApplication;
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)activationPolicy;
// Not deprecated before 14, which has a request that other applications may refuse in its place.
- (void)activateIgnoringOtherApps:(BOOL)ignoreOtherApps;
@end

#pragma clang assume_nonnull end
