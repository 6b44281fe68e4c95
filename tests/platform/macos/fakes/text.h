// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/Foundation.h>

#include <string>
#include <string_view>

namespace chimewell::test::mac {

inline NSString* text(std::string_view bytes)
{
    return [[NSString alloc] initWithBytes:bytes.data() length:bytes.size() encoding:NSUTF8StringEncoding];
}

inline std::string plain(NSString* string)
{
    return string ? string.UTF8String : "";
}

}
