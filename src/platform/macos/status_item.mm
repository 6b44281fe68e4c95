// SPDX-License-Identifier: MIT
#include "platform/macos/status_item.h"

#include "platform/macos/text.h"

#import <AppKit/AppKit.h>

@interface ChimewellStatusItemTarget : NSObject
@property (nonatomic, copy) void (^clicked)(void);
@end

@implementation ChimewellStatusItemTarget

- (void)click:(id)sender
{
    static_cast<void>(sender);
    self.clicked();
}

@end

namespace chimewell {

struct StatusItem::Item {
    NSStatusItem* item = [NSStatusBar.systemStatusBar statusItemWithLength:NSVariableStatusItemLength];
    ChimewellStatusItemTarget* target =
        [[ChimewellStatusItemTarget alloc] init]; ///< The button does not hold it.
};

StatusItem::StatusItem(std::function<void(const ScreenRectangle&)> clicked) : item_(std::make_unique<Item>())
{
    item_->target.clicked = ^{
        clicked(place());
    };
    NSStatusBarButton* const button = item_->item.button;
    button.target = item_->target;
    button.action = @selector(click:);
    [button sendActionOn:static_cast<NSEventMask>(NSEventMaskLeftMouseUp | NSEventMaskRightMouseUp)];
}

StatusItem::~StatusItem()
{
    [NSStatusBar.systemStatusBar removeStatusItem:item_->item];
}

void StatusItem::setSymbol(const std::string& name, const std::string& label)
{
    NSImage* const image = [NSImage imageWithSystemSymbolName:foundationText(name)
                                     accessibilityDescription:foundationText(label)];
    [image setTemplate:YES];
    item_->item.button.image = image;
    item_->item.button.accessibilityLabel = foundationText(label);
}

void StatusItem::setToolTip(const std::string& text)
{
    item_->item.button.toolTip = foundationText(text);
}

ScreenRectangle StatusItem::place() const
{
    NSStatusBarButton* const button = item_->item.button;
    const NSRect inWindow = [button convertRect:button.bounds toView:nil];
    const NSRect onScreen = [button.window convertRectToScreen:inWindow];
    // AppKit measures from the bottom left corner of the primary screen upwards.
    const CGFloat top = NSScreen.screens.firstObject.frame.size.height;
    return {.x = onScreen.origin.x,
            .y = top - (onScreen.origin.y + onScreen.size.height),
            .width = onScreen.size.width,
            .height = onScreen.size.height};
}

}
