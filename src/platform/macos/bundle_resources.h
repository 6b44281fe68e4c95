// SPDX-License-Identifier: MIT
#pragma once

#include "ports/resources.h"

namespace chimewell {

/// The files in the application bundle's Resources folder, our other programs among them.
class BundleResources final : public Resources {
public:
    std::optional<std::filesystem::path> named(std::string_view name) const override;
};

}
