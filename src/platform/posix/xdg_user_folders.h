// SPDX-License-Identifier: MIT
#pragma once

#include "ports/user_folders.h"

#include <vector>

namespace chimewell {

/// The user's folders by freedesktop.org's XDG Base Directory standard, as the environment names them when
/// this object is made. Values that are not absolute are ignored, as that standard asks.
class XdgUserFolders final : public UserFolders {
public:
    XdgUserFolders();

    /// HOME, else what the user database says, else "/".
    std::filesystem::path home() const override { return home_; }
    std::optional<std::filesystem::path> applicationSupport() const override { return dataFolders_.front(); }

    /// $XDG_DATA_HOME and then $XDG_DATA_DIRS: the first that has a file counts.
    const std::vector<std::filesystem::path>& dataFolders() const { return dataFolders_; }
    /// $XDG_CONFIG_HOME and then $XDG_CONFIG_DIRS.
    const std::vector<std::filesystem::path>& configFolders() const { return configFolders_; }

private:
    std::filesystem::path home_;
    std::vector<std::filesystem::path>
        dataFolders_; ///< Never empty, like the next one: the user's own is first.
    std::vector<std::filesystem::path> configFolders_;
};

}
