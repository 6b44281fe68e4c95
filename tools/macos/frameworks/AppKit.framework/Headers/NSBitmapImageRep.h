// SPDX-License-Identifier: MIT
#pragma once

#import <AppKit/NSGraphics.h>

#pragma clang assume_nonnull begin

@interface NSImageRep : NSObject <NSCopying>
@end

@interface NSBitmapImageRep : NSImageRep
- (nullable instancetype)initWithBitmapDataPlanes:(unsigned char* _Nullable* _Nullable)planes
                                       pixelsWide:(NSInteger)width
                                       pixelsHigh:(NSInteger)height
                                    bitsPerSample:(NSInteger)bps
                                  samplesPerPixel:(NSInteger)spp
                                         hasAlpha:(BOOL)alpha
                                         isPlanar:(BOOL)isPlanar
                                   colorSpaceName:(NSColorSpaceName)colorSpaceName
                                      bytesPerRow:(NSInteger)rBytes
                                     bitsPerPixel:(NSInteger)pBits;
@property (nullable, readonly) unsigned char* bitmapData;
@property (readonly) NSInteger bytesPerRow;
@end

#pragma clang assume_nonnull end
