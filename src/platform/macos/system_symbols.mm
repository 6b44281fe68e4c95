// SPDX-License-Identifier: MIT
#include "platform/macos/system_symbols.h"

#include "platform/macos/foundation.h"

#import <AppKit/AppKit.h>

#include <algorithm>
#include <cstddef>

namespace chimewell {

namespace {

constexpr int samplesPerPixel = 4; // red, green, blue and, last, alpha

/// Empty, and transparent all over.
NSBitmapImageRep* bitmap(int size)
{
    return [[NSBitmapImageRep alloc] initWithBitmapDataPlanes:nullptr
                                                   pixelsWide:size
                                                   pixelsHigh:size
                                                bitsPerSample:8
                                              samplesPerPixel:samplesPerPixel
                                                     hasAlpha:YES
                                                     isPlanar:NO
                                               colorSpaceName:NSDeviceRGBColorSpace
                                                  bytesPerRow:samplesPerPixel * size
                                                 bitsPerPixel:8 * samplesPerPixel];
}

/// As large as it fits, in the middle.
NSRect fitted(NSSize image, CGFloat side)
{
    const CGFloat scale = side / std::max(image.width, image.height);
    const NSSize size = {.width = image.width * scale, .height = image.height * scale};
    return {.origin = {.x = (side - size.width) / 2, .y = (side - size.height) / 2}, .size = size};
}

}

std::optional<AlphaMask> systemSymbol(std::string_view name, int size)
{
    NSImage* const image = [NSImage imageWithSystemSymbolName:foundationText(name)
                                     accessibilityDescription:nil];
    NSBitmapImageRep* const target = bitmap(size);
    NSGraphicsContext* const context =
        target ? [NSGraphicsContext graphicsContextWithBitmapImageRep:target] : nil;
    if (!image || !context) return std::nullopt;

    [NSGraphicsContext saveGraphicsState];
    NSGraphicsContext.currentContext = context;
    [image drawInRect:fitted(image.size, size)];
    [NSGraphicsContext restoreGraphicsState];

    AlphaMask mask{.size = size, .alpha = {}};
    const auto pixels = static_cast<std::size_t>(size) * static_cast<std::size_t>(size);
    mask.alpha.reserve(pixels);
    const unsigned char* const samples = target.bitmapData;
    for (std::size_t pixel = 0; pixel < pixels; ++pixel)
        mask.alpha.push_back(samples[pixel * samplesPerPixel + samplesPerPixel - 1]);
    return mask;
}

}
