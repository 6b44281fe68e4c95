// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSEnumerator.h>

#pragma clang assume_nonnull begin

@interface NSDictionary<__covariant KeyType, __covariant ObjectType> : NSObject <NSCopying, NSFastEnumeration>
@property (readonly) NSUInteger count;
- (nullable ObjectType)objectForKey:(KeyType)aKey;
// The compiler calls this for dictionary[key].
- (nullable ObjectType)objectForKeyedSubscript:(KeyType)key;
@end

@interface NSMutableDictionary<KeyType, ObjectType> : NSDictionary <KeyType, ObjectType>
// The compiler calls this for dictionary[key] = object.
- (void)setObject:(nullable ObjectType)obj forKeyedSubscript:(KeyType<NSCopying>)key;
@end

#pragma clang assume_nonnull end
