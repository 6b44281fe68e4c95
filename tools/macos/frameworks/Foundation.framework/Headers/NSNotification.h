// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSString.h>

@class NSOperationQueue;

#pragma clang assume_nonnull begin

typedef NSString* NSNotificationName;

@interface NSNotification : NSObject <NSCopying>
@property (readonly, copy) NSNotificationName name;
@end

@interface NSNotificationCenter : NSObject
@property (class, readonly, strong) NSNotificationCenter* defaultCenter;
- (id<NSObject>)addObserverForName:(nullable NSNotificationName)name
                            object:(nullable id)obj
                             queue:(nullable NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification* notification))block;
- (void)removeObserver:(id)observer;
@end

#pragma clang assume_nonnull end
