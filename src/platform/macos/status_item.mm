// SPDX-License-Identifier: MIT
#include "platform/macos/status_item.h"

#include "platform/macos/foundation.h"

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

StatusItem::StatusItem() : item_(std::make_unique<Item>())
{
    NSStatusBarButton* const button = item_->item.button;
    button.target = item_->target;
    button.action = @selector(click:);
    [button sendActionOn:static_cast<NSEventMask>(NSEventMaskLeftMouseUp | NSEventMaskRightMouseUp)];
}

StatusItem::~StatusItem()
{
    [NSStatusBar.systemStatusBar removeStatusItem:item_->item];
}

void StatusItem::setHandlers(Handlers handlers)
{
    item_->target.clicked = ^{
        handlers.clicked(place());
    };
}

void StatusItem::show(const StatusIconState& state)
{
    NSString* const label = foundationText(state.label);
    NSImage* const image = [NSImage imageWithSystemSymbolName:state.isArmed ? @"bell.badge" : @"bell"
                                     accessibilityDescription:label];
    [image setTemplate:YES];
    NSStatusBarButton* const button = item_->item.button;
    button.image = image;
    button.accessibilityLabel = label;
    button.toolTip = label;
}

ScreenArea StatusItem::place() const
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
