// SPDX-License-Identifier: MIT
#pragma once

#import <AppKit/NSResponder.h>

@class NSWindow;

#pragma clang assume_nonnull begin

@interface NSView : NSResponder
@property (nullable, readonly, assign) NSWindow* window;
@property NSRect bounds;
- (NSRect)convertRect:(NSRect)rect toView:(nullable NSView*)view;
@property (nullable, copy) NSString* toolTip;
@property (nullable, copy) NSString* accessibilityLabel;
@end

#pragma clang assume_nonnull end
