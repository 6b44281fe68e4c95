// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSObject.h>

#pragma clang assume_nonnull begin

@interface NSTimeZone : NSObject <NSCopying>
@property (class, readonly, copy) NSTimeZone* localTimeZone;
@end

#pragma clang assume_nonnull end
