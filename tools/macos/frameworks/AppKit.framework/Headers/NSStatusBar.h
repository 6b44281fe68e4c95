// SPDX-License-Identifier: MIT
#pragma once

#import <AppKit/NSStatusItem.h>

#pragma clang assume_nonnull begin

static const CGFloat NSVariableStatusItemLength = -1.0;

@interface NSStatusBar : NSObject
@property (class, readonly, strong) NSStatusBar* systemStatusBar;
- (NSStatusItem*)statusItemWithLength:(CGFloat)length;
- (void)removeStatusItem:(NSStatusItem*)item;
@end

#pragma clang assume_nonnull end
