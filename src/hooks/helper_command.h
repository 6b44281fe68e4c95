// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace chimewell {

/// The shell command that runs the helper for an agent's event. The path is in double quotes, where a POSIX
/// shell interprets only `"`, `$`, `` ` `` and `\`; these are escaped.
std::string helperCommand(const std::string& helper, std::string_view provider, std::string_view event);

/// Whether a command runs the helper at this path: quoted as above, or as a word of its own.
bool runsHelper(std::string_view command, const std::string& helper);

/// Whether a command runs a helper of ours, whatever its version and path.
bool namesOurHelper(std::string_view command);

}
