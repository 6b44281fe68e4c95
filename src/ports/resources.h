// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace chimewell {

/// Files that are installed with the application.
class Resources {
public:
    virtual ~Resources() = default;
    /// The full path of the resource with exactly that name; absent if there is none.
    virtual std::optional<std::filesystem::path> named(std::string_view name) const = 0;
};

}
