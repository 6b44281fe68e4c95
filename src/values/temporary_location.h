// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace chimewell {

/// Whether macOS has a program at this path only until it exits: on a mounted disk image, or in the read-only
/// copy at a random path that the system runs of a downloaded program until the user moves it. Nothing that
/// outlives the program may point there. A folder for applications on another disk is no such place.
bool isTemporaryLocation(const std::filesystem::path& program);

}
