// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/Foundation.h>

@class NSBitmapImageRep;

#pragma clang assume_nonnull begin

@interface NSGraphicsContext : NSObject
+ (nullable NSGraphicsContext*)graphicsContextWithBitmapImageRep:(NSBitmapImageRep*)bitmapRep;
@property (class, nullable, strong) NSGraphicsContext* currentContext;
+ (void)saveGraphicsState;
+ (void)restoreGraphicsState;
@end

#pragma clang assume_nonnull end
