// SPDX-License-Identifier: MIT
#include "fakes/menu_bar.h"

#include "fakes/images.h"
#include "fakes/main_thread.h"
#include "fakes/per_test.h"
#include "fakes/text.h"
#include "runtime/messages.h"

#import <AppKit/AppKit.h>

#include <algorithm>

using namespace chimewell::test::mac;

@implementation NSResponder
@end

namespace {

struct Shared {
    MenuBar menuBar;
    NSStatusBar* statusBar = [[NSStatusBar alloc] init];
    std::vector<NSStatusItem*> items; ///< The bar retains them until they are removed.

    std::string leftover() const { return items.empty() ? "" : "an item in the menu bar"; }
};

PerTest<Shared> shared;

NSRect rectangle(const Frame& frame)
{
    return {.origin = {.x = frame.x, .y = frame.y}, .size = {.width = frame.width, .height = frame.height}};
}

}

@implementation NSWindow

- (NSRect)convertRectToScreen:(NSRect)rect
{
    rect.origin.x += shared->menuBar.itemWindow.x;
    rect.origin.y += shared->menuBar.itemWindow.y;
    return rect;
}

@end

@implementation NSScreen {
    NSRect frame_;
}

+ (NSArray<NSScreen*>*)screens
{
    std::vector<NSScreen*> all;
    for (const Frame& frame : shared->menuBar.screens) {
        all.push_back([[NSScreen alloc] init]);
        all.back()->frame_ = rectangle(frame);
    }
    return [NSArray arrayWithObjects:all.data() count:all.size()];
}

- (NSRect)frame
{
    return frame_;
}

@end

@implementation NSView

@synthesize window, bounds, toolTip, accessibilityLabel;

/// Only to the coordinates of the window, which is all that a null view means.
- (NSRect)convertRect:(NSRect)rect toView:(NSView*)view
{
    rect.origin.x += shared->menuBar.buttonInset;
    rect.origin.y += shared->menuBar.buttonInset;
    return rect;
}

@end

@implementation NSControl {
@public
    NSEventMask mask_;
}

@synthesize target, action;

- (NSInteger)sendActionOn:(NSEventMask)mask
{
    const NSEventMask before = mask_;
    mask_ = mask;
    return static_cast<NSInteger>(before);
}

@end

@implementation NSButton
@synthesize image;
@end

@implementation NSStatusBarButton {
    NSWindow* window_;
}

- (instancetype)init
{
    self = [super init];
    window_ = [[NSWindow alloc] init];
    mask_ = NSEventMaskLeftMouseUp; // what every button begins with
    const MenuBar& bar = shared->menuBar;
    self.bounds = rectangle(
        {0, 0, bar.itemWindow.width - 2 * bar.buttonInset, bar.itemWindow.height - 2 * bar.buttonInset});
    return self;
}

- (NSWindow*)window
{
    return window_;
}

@end

@implementation NSStatusItem {
@public
    CGFloat length_;
}

@synthesize button = button_;

- (instancetype)init
{
    self = [super init];
    button_ = [[NSStatusBarButton alloc] init];
    return self;
}

@end

@implementation NSStatusBar

+ (NSStatusBar*)systemStatusBar
{
    return shared->statusBar;
}

- (NSStatusItem*)statusItemWithLength:(CGFloat)length
{
    requireMainThread("-[NSStatusBar statusItemWithLength:]");
    NSStatusItem* const item = [[NSStatusItem alloc] init];
    item->length_ = length;
    shared->items.push_back(item);
    return item;
}

- (void)removeStatusItem:(NSStatusItem*)item
{
    std::erase_if(shared->items, [&](NSStatusItem* known) { return known == item; });
}

@end

namespace chimewell::test::mac {

std::vector<MenuBarItem> MenuBar::items() const
{
    std::vector<MenuBarItem> result;
    for (const auto& item : shared->items) {
        NSStatusBarButton* const button = item.button;
        const std::optional<SymbolImage> image = symbolImage((__bridge void*)button.image);
        result.push_back({.length = item->length_,
                          .symbol = image ? std::optional(image->name) : std::nullopt,
                          .symbolDescription = image ? image->description : std::nullopt,
                          .isTemplate = image && image->isTemplate,
                          .toolTip = plain(button.toolTip),
                          .accessibilityLabel = plain(button.accessibilityLabel)});
    }
    return result;
}

void MenuBar::click(std::size_t item, MouseButton mouse) const
{
    NSStatusBarButton* const button = shared->items.at(item).button;
    const NSEventMask event = mouse == MouseButton::left ? static_cast<NSEventMask>(NSEventMaskLeftMouseUp)
                                                         : static_cast<NSEventMask>(NSEventMaskRightMouseUp);
    if ((button->mask_ & event) == 0) return;
    @autoreleasepool {
        reinterpret_cast<void (*)(id, SEL, id)>(objc_msgSend)(button.target, button.action, button);
    }
}

MenuBar& menuBar()
{
    return shared->menuBar;
}

}
