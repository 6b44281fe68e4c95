// SPDX-License-Identifier: MIT
#include "fakes/images.h"

#include "fakes/main_thread.h"
#include "fakes/per_test.h"
#include "fakes/text.h"

#import <AppKit/AppKit.h>

#include <cstddef>
#include <vector>

using namespace chimewell::test::mac;

const NSColorSpaceName NSDeviceRGBColorSpace = @"the device's RGB";

namespace {

struct Drawing {
    std::map<std::string, Symbol> symbols{{"bell", {16, 16}}, {"bell.slash", {20, 16}}};
    NSGraphicsContext* current = nil;
    std::vector<NSGraphicsContext*> saved;

    std::string leftover() const
    {
        return current || !saved.empty() ? "a graphics context that was not restored" : "";
    }
};

PerTest<Drawing> drawing;

}

@implementation NSImageRep
@end

@implementation NSBitmapImageRep {
@public
    std::vector<unsigned char> samples_;
    NSInteger width_;
    NSInteger height_;
}

@synthesize bytesPerRow = bytesPerRow_;

/// Only the form that the adapters ask for: interleaved RGBA of eight bits, memory of its own.
- (instancetype)initWithBitmapDataPlanes:(unsigned char**)planes
                              pixelsWide:(NSInteger)width
                              pixelsHigh:(NSInteger)height
                           bitsPerSample:(NSInteger)bitsPerSample
                         samplesPerPixel:(NSInteger)samplesPerPixel
                                hasAlpha:(BOOL)alpha
                                isPlanar:(BOOL)planar
                          colorSpaceName:(NSColorSpaceName)colorSpace
                             bytesPerRow:(NSInteger)bytesPerRow
                            bitsPerPixel:(NSInteger)bitsPerPixel
{
    self = [super init];
    if (planes || width <= 0 || height <= 0 || bitsPerSample != 8 || samplesPerPixel != 4 || !alpha ||
        planar || ![colorSpace isEqualToString:NSDeviceRGBColorSpace] || bitsPerPixel != 32)
        return nil;
    // The system chooses the length of the rows itself, longer than they need to be, when it is asked to.
    bytesPerRow_ = bytesPerRow != 0 ? bytesPerRow : (4 * width + 63) / 64 * 64;
    width_ = width;
    height_ = height;
    samples_.resize(static_cast<std::size_t>(bytesPerRow_ * height));
    return self;
}

- (unsigned char*)bitmapData
{
    return samples_.data();
}

@end

@implementation NSGraphicsContext {
@public
    NSBitmapImageRep* bitmap_;
}

+ (NSGraphicsContext*)graphicsContextWithBitmapImageRep:(NSBitmapImageRep*)bitmap
{
    NSGraphicsContext* const context = [[NSGraphicsContext alloc] init];
    context->bitmap_ = bitmap;
    return context;
}

+ (NSGraphicsContext*)currentContext
{
    return drawing->current;
}

+ (void)setCurrentContext:(NSGraphicsContext*)context
{
    drawing->current = context;
}

+ (void)saveGraphicsState
{
    requireMainThread("+[NSGraphicsContext saveGraphicsState]");
    drawing->saved.push_back(drawing->current);
}

+ (void)restoreGraphicsState
{
    drawing->current = drawing->saved.back();
    drawing->saved.pop_back();
}

@end

@implementation NSImage {
@public
    NSString* name_;
    NSString* description_;
    BOOL isTemplate_;
}

@synthesize size = size_;

+ (instancetype)imageWithSystemSymbolName:(NSString*)name accessibilityDescription:(NSString*)description
{
    const auto found = drawing->symbols.find(plain(name));
    if (found == drawing->symbols.end()) return nil;
    NSImage* const image = [[self alloc] init];
    image->name_ = name;
    image->description_ = description;
    image.size = {.width = found->second.width, .height = found->second.height};
    return image;
}

- (BOOL)isTemplate
{
    return isTemplate_;
}

- (void)setTemplate:(BOOL)isTemplate
{
    isTemplate_ = isTemplate;
}

/// A drawing's origin is at its bottom left, a bitmap's first row is the top one.
- (void)drawInRect:(NSRect)rect
{
    if (!drawing->current) return;
    NSBitmapImageRep* const bitmap = drawing->current->bitmap_;
    for (NSInteger row = 0; row < bitmap->height_; ++row)
        for (NSInteger column = 0; column < bitmap->width_; ++column) {
            const double x = static_cast<double>(column) + 0.5 - rect.origin.x;
            const double y = static_cast<double>(bitmap->height_ - row) - 0.5 - rect.origin.y;
            if (x < 0 || y < 0 || x > rect.size.width || y > rect.size.height) continue;
            unsigned char* const pixel = bitmap.bitmapData + row * bitmap.bytesPerRow + column * 4;
            pixel[3] = y > rect.size.height / 2 ? 255 : 128;
        }
}

@end

namespace chimewell::test::mac {

std::map<std::string, Symbol>& symbols()
{
    return drawing->symbols;
}

std::optional<SymbolImage> symbolImage(void* image)
{
    NSImage* const known = (__bridge NSImage*)image;
    if (!known) return std::nullopt;
    return SymbolImage{.name = plain(known->name_),
                       .description =
                           known->description_ ? std::optional(plain(known->description_)) : std::nullopt,
                       .isTemplate = static_cast<bool>(known->isTemplate_)};
}

}
