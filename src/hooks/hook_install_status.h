// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"

#include <cstdint>

namespace chimewell {

/// What an agent's file says about our hooks, whatever we remember of it.
struct HookInstallStatus {
    enum class Kind : std::uint8_t {
        installed,
        error,        ///< The file could not be read or parsed.
        notInstalled, ///< No file, or none of our entries in it.
        comingSoon,   ///< The integration is not offered.
    };

    Kind kind = Kind::notInstalled;
    Phrase message = {}; ///< Of an error; empty otherwise.
    bool operator==(const HookInstallStatus&) const = default;
};

}
