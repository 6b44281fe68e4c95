// SPDX-License-Identifier: MIT
#pragma once

// For Objective-C++ only.

#import <Foundation/Foundation.h>

#include <string>
#include <string_view>

namespace chimewell {

/// UTF-8 as NSString; empty for bytes that are no UTF-8, which Foundation would answer with nil.
NSString* foundationText(std::string_view text);
/// Empty for nil.
std::string utf8(NSString* text);

}
