// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSString.h>

#pragma clang assume_nonnull begin

@interface NSBundle : NSObject
@property (class, readonly, strong) NSBundle* mainBundle;
- (nullable NSString*)pathForResource:(nullable NSString*)name ofType:(nullable NSString*)ext;
@property (nullable, readonly, copy) NSString* bundleIdentifier;
@end

#pragma clang assume_nonnull end
