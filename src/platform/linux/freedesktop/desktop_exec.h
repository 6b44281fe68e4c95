// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

class DesktopEntry;

/// The program and its arguments that the Exec line of `entry` stands for when there is no file to
/// open. Nothing when the line is missing or malformed. `file` is where the entry was read.
std::optional<std::vector<std::string>> commandLine(const DesktopEntry& entry,
                                                    const std::filesystem::path& file);

/// An Exec value, escapes included, that starts exactly `command`.
std::string execValue(const std::vector<std::string>& command);

/// A value of type string, for keys other than Exec.
std::string stringValue(std::string_view text);

}
