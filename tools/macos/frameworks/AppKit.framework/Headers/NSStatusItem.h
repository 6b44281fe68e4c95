// SPDX-License-Identifier: MIT
#pragma once

#import <AppKit/NSButton.h>

#pragma clang assume_nonnull begin

@interface NSStatusBarButton : NSButton
@end

@interface NSStatusItem : NSObject
@property (nullable, readonly, strong) NSStatusBarButton* button;
@end

#pragma clang assume_nonnull end
