// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace chimewell {

/// The file URI (RFC 8089) of an absolute path, whatever bytes it consists of.
std::string fileUri(const std::filesystem::path& path);

}
