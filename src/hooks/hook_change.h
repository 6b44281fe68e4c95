// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace chimewell {

/// One entry that an install or uninstall would add to an agent's file or take out of it.
struct HookChange {
    enum class Kind : std::uint8_t { removed, added };

    Kind kind = Kind::added;
    std::string entry; ///< The lines as they stand in the file, alone in their event's array.
    bool operator==(const HookChange&) const = default;
};

}
