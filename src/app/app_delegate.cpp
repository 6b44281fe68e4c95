// SPDX-License-Identifier: MIT
#include "app/app_delegate.h"

namespace chimewell {

void AppDelegate::applicationDidFinishLaunching()
{
    with_.activation.setPolicy(ActivationPolicy::accessory);
    launchCheck_ = with_.timers.once(launchCheckDelay, [this] {
        if (!with_.urls.didHandleLaunchEvent()) with_.marker.clear();
        launchCheck_.reset();
    });
    with_.notifications.configure();
}

void AppDelegate::applicationWillTerminate(QuitReason reason)
{
    if (reason == QuitReason::user) with_.marker.write();
}

}
