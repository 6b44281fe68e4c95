// SPDX-License-Identifier: MIT
#pragma once

#import <AppKit/NSEvent.h>
#import <AppKit/NSView.h>

#pragma clang assume_nonnull begin

@interface NSControl : NSView
@property (nullable, weak) id target;
@property (nullable) SEL action;
- (NSInteger)sendActionOn:(NSEventMask)mask;
@end

#pragma clang assume_nonnull end
