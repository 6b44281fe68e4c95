// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace chimewell {

/// The files that came with the application.
class Resources {
public:
    virtual ~Resources() = default;
    /// The full path of the resource of exactly that name; nothing if it is not there.
    virtual std::optional<std::filesystem::path> named(std::string_view name) const = 0;
};

}
