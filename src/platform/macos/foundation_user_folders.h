// SPDX-License-Identifier: MIT
#pragma once

#include "ports/user_folders.h"

namespace chimewell {

/// The user's folders as Foundation names them.
class FoundationUserFolders final : public UserFolders {
public:
    std::filesystem::path home() const override;
    /// Made where it is missing.
    std::optional<std::filesystem::path> applicationSupport() const override;
};

}
