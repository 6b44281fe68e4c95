// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>

namespace chimewell {

/// Folders of the user.
class UserFolders {
public:
    virtual ~UserFolders() = default;
    virtual std::filesystem::path home() const = 0;
    /// The folder in which each application has a folder for its data; absent if the system names none.
    virtual std::optional<std::filesystem::path> applicationSupport() const = 0;
};

}
