// SPDX-License-Identifier: MIT
#pragma once

#include "ports/resources.h"
#include "ports/user_folders.h"

namespace chimewell::test {

class FixedHome : public UserFolders {
public:
    std::filesystem::path home() const override { return "/home/me"; }
    std::optional<std::filesystem::path> applicationSupport() const override { return "/data"; }
};

/// Resources of which there is at most our helper.
class OneResource : public Resources {
public:
    std::optional<std::filesystem::path> named(std::string_view name) const override
    {
        return name == "chimewell-hook" ? helper : std::nullopt;
    }

    std::optional<std::filesystem::path> helper = "/opt/chimewell-hook";
};

}
