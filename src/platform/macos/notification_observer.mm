// SPDX-License-Identifier: MIT
#include "platform/macos/notification_observer.h"

namespace chimewell {

NotificationObserver::NotificationObserver(NSNotificationCenter* center, NSNotificationName name,
                                           std::function<void()> posted)
    : center_(center),
      observation_([center addObserverForName:name
                                       object:nil
                                        queue:nil
                                   usingBlock:^(NSNotification*) {
                                       posted();
                                   }])
{
}

NotificationObserver::~NotificationObserver()
{
    [center_ removeObserver:observation_];
}

}
