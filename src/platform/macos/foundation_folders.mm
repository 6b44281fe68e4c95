// SPDX-License-Identifier: MIT
#include "platform/macos/foundation_folders.h"

#include "platform/macos/foundation.h"

namespace chimewell {

std::filesystem::path FoundationUserFolders::home() const
{
    return utf8(NSHomeDirectory());
}

std::optional<std::filesystem::path> FoundationUserFolders::applicationSupport() const
{
    NSString* const path = [NSFileManager.defaultManager URLForDirectory:NSApplicationSupportDirectory
                                                                inDomain:NSUserDomainMask
                                                       appropriateForURL:nil
                                                                  create:YES
                                                                   error:nil]
                               .path;
    if (!path) return std::nullopt;
    return utf8(path);
}

std::optional<std::filesystem::path> BundleResources::named(std::string_view name) const
{
    NSString* const path = [NSBundle.mainBundle pathForResource:foundationText(name) ofType:nil];
    if (!path) return std::nullopt;
    return utf8(path);
}

}
