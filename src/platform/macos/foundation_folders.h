// SPDX-License-Identifier: MIT
#pragma once

#include "ports/resources.h"
#include "ports/user_folders.h"

namespace chimewell {

/// The user's folders as Foundation names them.
class FoundationUserFolders final : public UserFolders {
public:
    std::filesystem::path home() const override;
    /// Creates the folder if it does not exist.
    std::optional<std::filesystem::path> applicationSupport() const override;
};

/// The files in the application bundle's Resources folder, our other programs among them.
class BundleResources final : public Resources {
public:
    std::optional<std::filesystem::path> named(std::string_view name) const override;
};

}
