// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSObject.h>

#pragma clang assume_nonnull begin

@interface NSOperationQueue : NSObject
@property (class, readonly, strong) NSOperationQueue* mainQueue;
- (void)addOperationWithBlock:(void (^)(void))block;
@end

#pragma clang assume_nonnull end
