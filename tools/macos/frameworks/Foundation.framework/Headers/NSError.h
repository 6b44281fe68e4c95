// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSObject.h>

#pragma clang assume_nonnull begin

@interface NSError : NSObject <NSCopying>
@property (readonly, copy) NSString* localizedDescription;
@end

#pragma clang assume_nonnull end
