// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace chimewell {

/// The variables of a process.
class Environment {
public:
    /// `block` is a list of NAME=value ended by a null pointer, as a process is given it. It outlives this
    /// object.
    explicit Environment(const char* const* block) : block_(block) {}

    /// The value of `name`; empty when it is not set.
    std::string_view operator[](std::string_view name) const
    {
        for (const char* const* entry = block_; *entry != nullptr; ++entry) {
            const std::string_view text(*entry);
            if (text.size() > name.size() && text[name.size()] == '=' && text.starts_with(name))
                return text.substr(name.size() + 1);
        }
        return {};
    }

private:
    const char* const* block_;
};

}
