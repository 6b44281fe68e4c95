// SPDX-License-Identifier: MIT
#pragma once

// For Objective-C++ only.

#import <Foundation/Foundation.h>

#include <functional>

namespace chimewell {

/// Calls `posted` each time the notification is posted, on the thread that posts it, for as long as this
/// object lives.
class NotificationObserver {
public:
    NotificationObserver(NSNotificationCenter* center, NSNotificationName name, std::function<void()> posted);
    NotificationObserver(const NotificationObserver&) = delete;
    NotificationObserver& operator=(const NotificationObserver&) = delete;
    ~NotificationObserver();

private:
    NSNotificationCenter* center_;
    id observation_;
};

}
