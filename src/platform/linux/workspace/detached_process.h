// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace chimewell {

/// Starts a program that goes on without us, with `activationToken` (or none) in its environment and
/// nothing of our streams. False when it cannot be started.
bool startDetached(const std::vector<std::string>& command, const std::filesystem::path& workingFolder,
                   const std::string& activationToken);

}
