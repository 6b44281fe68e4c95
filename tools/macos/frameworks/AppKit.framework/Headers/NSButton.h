// SPDX-License-Identifier: MIT
#pragma once

#import <AppKit/NSControl.h>

@class NSImage;

#pragma clang assume_nonnull begin

@interface NSButton : NSControl
@property (nullable, strong) NSImage* image;
@end

#pragma clang assume_nonnull end
