// SPDX-License-Identifier: MIT
#include "platform/macos/bundle_resources.h"

#include "platform/macos/text.h"

namespace chimewell {

std::optional<std::filesystem::path> BundleResources::named(std::string_view name) const
{
    NSString* const path = [NSBundle.mainBundle pathForResource:foundationText(name) ofType:nil];
    if (!path) return std::nullopt;
    return utf8(path);
}

}
