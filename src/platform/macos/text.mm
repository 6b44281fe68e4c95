// SPDX-License-Identifier: MIT
#include "platform/macos/text.h"

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

}
