// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSObject.h>

#pragma clang assume_nonnull begin

typedef double NSTimeInterval;

@interface NSDate : NSObject <NSCopying>
+ (instancetype)dateWithTimeIntervalSince1970:(NSTimeInterval)secs;
@property (readonly) NSTimeInterval timeIntervalSince1970;
@end

#pragma clang assume_nonnull end
