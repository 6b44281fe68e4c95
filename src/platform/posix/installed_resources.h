// SPDX-License-Identifier: MIT
#pragma once

#include "ports/resources.h"

#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace chimewell {

/// Resources as files in folders of the installation.
class InstalledResources final : public Resources {
public:
    /// Searched in this order. The folders' paths are absolute and need not be in their shortest form.
    explicit InstalledResources(std::vector<std::filesystem::path> folders) : folders_(std::move(folders)) {}

    std::optional<std::filesystem::path> named(std::string_view name) const override
    {
        for (const std::filesystem::path& folder : folders_) {
            // In the shortest form: users see it in the agents' files.
            std::filesystem::path file = (folder / name).lexically_normal();
            std::error_code ignored;
            if (std::filesystem::is_regular_file(file, ignored)) return file;
        }
        return std::nullopt;
    }

private:
    std::vector<std::filesystem::path> folders_;
};

}
