// SPDX-License-Identifier: MIT
#include "platform/macos/foundation.h"

namespace chimewell {

NSString* foundationText(std::string_view text)
{
    NSString* const result = [[NSString alloc] initWithBytes:text.data()
                                                      length:text.size()
                                                    encoding:NSUTF8StringEncoding];
    return result ? result : @"";
}

std::string utf8(NSString* text)
{
    const char* const bytes = text.UTF8String;
    return bytes ? bytes : "";
}

void postToMain(std::function<void()> task)
{
    [NSOperationQueue.mainQueue addOperationWithBlock:^{
        task();
    }];
}

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
