// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>

namespace chimewell {

/// Where the user's own files belong.
class UserFolders {
public:
    virtual ~UserFolders() = default;
    virtual std::filesystem::path home() const = 0;
    /// The folder that holds one folder for each application's data; nothing if the system names none.
    virtual std::optional<std::filesystem::path> applicationSupport() const = 0;
};

}
