// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSObject.h>

#pragma clang assume_nonnull begin

@interface NSLocale : NSObject <NSCopying>
@property (class, readonly, copy) NSLocale* currentLocale;
@property (readonly, copy) NSString* languageCode; // 10.12
@end

#pragma clang assume_nonnull end
