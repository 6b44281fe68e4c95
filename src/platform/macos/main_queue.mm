// SPDX-License-Identifier: MIT
#include "platform/macos/main_queue.h"

#import <Foundation/Foundation.h>

namespace chimewell {

void postToMain(std::function<void()> task)
{
    [NSOperationQueue.mainQueue addOperationWithBlock:^{
        task();
    }];
}

}
