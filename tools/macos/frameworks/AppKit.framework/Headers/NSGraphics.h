// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

typedef NSString* NSColorSpaceName;

NS_EXTERN const NSColorSpaceName NSDeviceRGBColorSpace;

#pragma clang assume_nonnull end
