// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSEnumerator.h>

#pragma clang assume_nonnull begin

@interface NSArray<__covariant ObjectType> : NSObject <NSCopying, NSFastEnumeration>
// The compiler calls this for @[].
+ (instancetype)arrayWithObjects:(const ObjectType _Nonnull[_Nullable])objects count:(NSUInteger)cnt;
@property (readonly) NSUInteger count;
@property (nullable, nonatomic, readonly) ObjectType firstObject;
@end

#pragma clang assume_nonnull end
