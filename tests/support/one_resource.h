// SPDX-License-Identifier: MIT
#pragma once

#include "ports/resources.h"

namespace chimewell::test {

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
