// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

@interface NSScreen : NSObject
@property (class, readonly, copy) NSArray<NSScreen*>* screens; // the primary one first
@property (readonly) NSRect frame;
@end

#pragma clang assume_nonnull end
