// SPDX-License-Identifier: MIT
#pragma once

#include "ports/resources.h"

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace chimewell {

/// Resources as files in folders of the installation.
class InstalledResources final : public Resources {
public:
    /// Searched in this order. The folders' paths are absolute, and need not be in their shortest form.
    explicit InstalledResources(std::vector<std::filesystem::path> folders);

    std::optional<std::filesystem::path> named(std::string_view name) const override;

private:
    std::vector<std::filesystem::path> folders_;
};

}
