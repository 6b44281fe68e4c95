// SPDX-License-Identifier: MIT
#include "settings/application_folder.h"

namespace chimewell {

std::filesystem::path applicationFolder(const UserFolders& folders)
{
    const auto support = folders.applicationSupport();
    return (support ? *support : folders.home() / "Library/Application Support") / "Chimewell";
}

}
