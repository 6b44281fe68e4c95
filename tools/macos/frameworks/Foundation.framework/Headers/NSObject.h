// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSObjCRuntime.h>

@class NSString;

#pragma clang assume_nonnull begin

@protocol NSObject
@property (readonly) NSUInteger hash;
@property (readonly, copy) NSString* description;
- (BOOL)isEqual:(nullable id)object;
- (BOOL)isKindOfClass:(Class)aClass;
- (BOOL)respondsToSelector:(SEL)aSelector;
@end

@protocol NSCopying
- (id)copyWithZone:(nullable struct _NSZone*)zone;
@end

__attribute__((objc_root_class))
@interface NSObject<NSObject> {
    Class isa; // where subclasses' own variables begin is counted from here
}
+ (instancetype)alloc;
+ (instancetype)new;
+ (Class)class;
- (instancetype)init;
- (void)dealloc;
- (id)copy;
@end

#pragma clang assume_nonnull end
