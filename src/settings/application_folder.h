// SPDX-License-Identifier: MIT
#pragma once

#include "ports/user_folders.h"

#include <filesystem>

namespace chimewell {

/// The folder "Chimewell" that holds the settings and the dormant marker.
std::filesystem::path applicationFolder(const UserFolders& folders);

}
