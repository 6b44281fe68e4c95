// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace chimewell {

/// The name of our helper's program; what carries it in its command is ours.
inline constexpr std::string_view helperName = "chimewell-hook";

/// The shell command that runs our helper for an agent's event. The path stands in double quotes, within
/// which a POSIX shell gives meaning to `"`, `$`, `` ` `` and `\` alone; these are escaped.
std::string hookCommandLine(const std::string& helper, std::string_view provider, std::string_view event);

/// Whether a command runs this very helper: quoted as above, or its path as a word of its own.
bool runsHelper(std::string_view command, const std::string& helper);

/// Whether a command is ours, of whatever build and place.
bool namesOurHelper(std::string_view command);

}
