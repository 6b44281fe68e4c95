// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>

namespace chimewell::test::mac {

/// Who uses the Mac, and what we were started from.
struct UserEnvironment {
    std::string home = "/Users/me";
    /// Absent: the system cannot tell.
    std::optional<std::string> applicationSupport = "/Users/me/Library/Application Support";

    std::optional<std::string> bundleIdentifier = "app.chimewell.Chimewell"; ///< Absent outside a bundle.
    std::map<std::string, std::string> resources; ///< Paths of the bundle's resources, by name.
};

UserEnvironment& userEnvironment();

}
