// SPDX-License-Identifier: MIT
#include "platform/macos/foundation_user_folders.h"

#include "platform/macos/text.h"

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

}
