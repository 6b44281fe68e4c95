// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

@interface NSImage : NSObject <NSCopying>
+ (nullable instancetype)imageWithSystemSymbolName:(NSString*)name
                          accessibilityDescription:(nullable NSString*)description; // 11.0
@property NSSize size;
// Not as a property: its name is a keyword of C++.
- (BOOL)isTemplate;
- (void)setTemplate:(BOOL)isTemplate;
- (void)drawInRect:(NSRect)rect;
@end

#pragma clang assume_nonnull end
