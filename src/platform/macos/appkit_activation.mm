// SPDX-License-Identifier: MIT
#include "platform/macos/appkit_activation.h"

#include "platform/macos/foundation.h"

#import <AppKit/AppKit.h>

namespace chimewell {

void AppKitActivation::setPolicy(ActivationPolicy policy)
{
    [NSApplication.sharedApplication setActivationPolicy:policy == ActivationPolicy::regular
                                                             ? NSApplicationActivationPolicyRegular
                                                             : NSApplicationActivationPolicyAccessory];
}

void AppKitActivation::activate()
{
    [NSApplication.sharedApplication activateIgnoringOtherApps:YES];
}

}
