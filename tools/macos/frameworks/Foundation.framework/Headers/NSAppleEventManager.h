// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSAppleEventDescriptor.h>

#pragma clang assume_nonnull begin

@interface NSAppleEventManager : NSObject
+ (NSAppleEventManager*)sharedAppleEventManager;
- (void)setEventHandler:(id)handler
            andSelector:(SEL)handleEventSelector
          forEventClass:(AEEventClass)eventClass
             andEventID:(AEEventID)eventID;
- (void)removeEventHandlerForEventClass:(AEEventClass)eventClass andEventID:(AEEventID)eventID;
@property (nullable, readonly, retain) NSAppleEventDescriptor* currentAppleEvent;
@end

#pragma clang assume_nonnull end
