// SPDX-License-Identifier: MIT
#pragma once

#include "ports/user_folders.h"

namespace chimewell::test {

class FixedHome : public UserFolders {
public:
    std::filesystem::path home() const override { return "/home/me"; }
    std::optional<std::filesystem::path> applicationSupport() const override { return support; }

    std::optional<std::filesystem::path> support = "/data";
};

}
