// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSString.h>

#pragma clang assume_nonnull begin

typedef NS_ENUM(NSUInteger, NSSearchPathDirectory) {
    NSApplicationSupportDirectory = 14,
};

typedef NS_OPTIONS(NSUInteger, NSSearchPathDomainMask) {
    NSUserDomainMask = 1,
};

NS_EXTERN NSString* NSHomeDirectory(void);

#pragma clang assume_nonnull end
