// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSString.h>

@class NSTimer;

#pragma clang assume_nonnull begin

typedef NSString* NSRunLoopMode;

NS_EXTERN const NSRunLoopMode NSRunLoopCommonModes;

@interface NSRunLoop : NSObject
@property (class, readonly, strong) NSRunLoop* mainRunLoop;
- (void)addTimer:(NSTimer*)timer forMode:(NSRunLoopMode)mode;
@end

#pragma clang assume_nonnull end
