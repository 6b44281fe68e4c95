// SPDX-License-Identifier: MIT
#pragma once

// What the adapters need of Foundation. For Objective-C++ only.

#if !__has_feature(objc_arc)
#error "The adapters need automatic reference counting: -fobjc-arc"
#endif

#import <Foundation/Foundation.h>

#include <functional>
#include <string>
#include <string_view>

namespace chimewell {

/// UTF-8 as NSString; empty for bytes that are not UTF-8, for which Foundation returns nil.
NSString* foundationText(std::string_view text);
/// Empty for nil.
std::string utf8(NSString* text);

/// Runs `task` on the main thread, always later than this call. Can be called on any thread.
void postToMain(std::function<void()> task);

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
