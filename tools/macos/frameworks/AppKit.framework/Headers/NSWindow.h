// SPDX-License-Identifier: MIT
#pragma once

#import <AppKit/NSResponder.h>

@interface NSWindow : NSResponder
- (NSRect)convertRectToScreen:(NSRect)rect;
@end
