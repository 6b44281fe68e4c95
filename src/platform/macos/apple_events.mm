// SPDX-License-Identifier: MIT
#include "platform/macos/apple_events.h"

#include "platform/macos/foundation.h"

#import <AppKit/AppKit.h>

#include <utility>

@interface ChimewellAppleEventHandler : NSObject
@property (nonatomic, copy) void (^opened)(NSAppleEventDescriptor* event);
@property (nonatomic, copy) void (^reopened)(void);
@property (nonatomic, copy) void (^quitRequested)(NSAppleEventDescriptor* event);
@end

@implementation ChimewellAppleEventHandler

- (void)handleURLEvent:(NSAppleEventDescriptor*)event withReplyEvent:(NSAppleEventDescriptor*)reply
{
    static_cast<void>(reply);
    self.opened(event);
}

- (void)handleReopenEvent:(NSAppleEventDescriptor*)event withReplyEvent:(NSAppleEventDescriptor*)reply
{
    static_cast<void>(event);
    static_cast<void>(reply);
    self.reopened();
}

- (void)handleQuitEvent:(NSAppleEventDescriptor*)event withReplyEvent:(NSAppleEventDescriptor*)reply
{
    static_cast<void>(reply); // stays empty: an error in it would refuse
    self.quitRequested(event);
}

@end

namespace chimewell {

namespace {

bool endsSession(NSAppleEventDescriptor* quit)
{
    // Whether the reason comes as a parameter or as an attribute, and of which of the two code types, is
    // written down nowhere.
    NSAppleEventDescriptor* reason = [quit paramDescriptorForKeyword:kAEQuitReason];
    if (!reason) reason = [quit attributeDescriptorForKeyword:kAEQuitReason];
    const OSType code = reason.enumCodeValue != 0 ? reason.enumCodeValue : reason.typeCodeValue;
    return code == kAELogOut || code == kAEReallyLogOut || code == kAERestart || code == kAEShutDown;
}

}

/// Holds the handler, which the event manager does not.
struct AppleEvents::Registration {
    ChimewellAppleEventHandler* handler = [[ChimewellAppleEventHandler alloc] init];
    bool isRegistered = false;
};

AppleEvents::AppleEvents(Handlers handlers) : registration_(std::make_unique<Registration>())
{
    registration_->handler.opened = ^(NSAppleEventDescriptor* event) {
        NSString* const url = [event paramDescriptorForKeyword:keyDirectObject].stringValue;
        handlers.open(url ? std::optional(utf8(url)) : std::nullopt);
    };
    registration_->handler.reopened = ^{
        handlers.reopen();
    };
    registration_->handler.quitRequested = ^(NSAppleEventDescriptor* event) {
        handlers.quit(endsSession(event));
    };
    // Observers run in the order in which they were added, and the toolkit's came with its application
    // object.
    launching_ = std::make_unique<NotificationObserver>(NSNotificationCenter.defaultCenter,
                                                        NSApplicationWillFinishLaunchingNotification,
                                                        [this] { registerHandlers(); });
    launched_ = std::make_unique<NotificationObserver>(
        NSNotificationCenter.defaultCenter, NSApplicationDidFinishLaunchingNotification, handlers.didLaunch);
    wake_ = std::make_unique<NotificationObserver>(NSWorkspace.sharedWorkspace.notificationCenter,
                                                   NSWorkspaceDidWakeNotification, handlers.didWake);
}

AppleEvents::~AppleEvents()
{
    if (!registration_->isRegistered) return;
    NSAppleEventManager* const manager = [NSAppleEventManager sharedAppleEventManager];
    [manager removeEventHandlerForEventClass:kInternetEventClass andEventID:kAEGetURL];
    [manager removeEventHandlerForEventClass:kCoreEventClass andEventID:kAEReopenApplication];
    [manager removeEventHandlerForEventClass:kCoreEventClass andEventID:kAEQuitApplication];
}

void AppleEvents::registerHandlers()
{
    NSAppleEventManager* const manager = [NSAppleEventManager sharedAppleEventManager];
    [manager setEventHandler:registration_->handler
                 andSelector:@selector(handleURLEvent:withReplyEvent:)
               forEventClass:kInternetEventClass
                  andEventID:kAEGetURL];
    [manager setEventHandler:registration_->handler
                 andSelector:@selector(handleReopenEvent:withReplyEvent:)
               forEventClass:kCoreEventClass
                  andEventID:kAEReopenApplication];
    [manager setEventHandler:registration_->handler
                 andSelector:@selector(handleQuitEvent:withReplyEvent:)
               forEventClass:kCoreEventClass
                  andEventID:kAEQuitApplication];
    registration_->isRegistered = true;
}

}
