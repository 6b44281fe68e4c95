// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSDate.h>

#pragma clang assume_nonnull begin

@interface NSTimer : NSObject
+ (NSTimer*)timerWithTimeInterval:(NSTimeInterval)interval
                          repeats:(BOOL)repeats
                            block:(void (^)(NSTimer* timer))block; // 10.12
- (void)invalidate;
@end

#pragma clang assume_nonnull end
