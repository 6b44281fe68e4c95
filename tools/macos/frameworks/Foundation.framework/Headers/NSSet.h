// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSEnumerator.h>

#pragma clang assume_nonnull begin

@interface NSSet<__covariant ObjectType> : NSObject <NSCopying, NSFastEnumeration>
+ (instancetype)setWithObject:(ObjectType)object;
@property (readonly) NSUInteger count;
@end

#pragma clang assume_nonnull end
