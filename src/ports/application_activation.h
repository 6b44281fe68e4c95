// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace chimewell {

/// Where the application appears.
enum class ActivationPolicy : std::uint8_t {
    accessory, ///< In the menu bar only.
    regular,   ///< With an icon and a menu of its own among the running applications.
};

/// How the application appears among the running ones.
class ApplicationActivation {
public:
    virtual ~ApplicationActivation() = default;
    virtual void setPolicy(ActivationPolicy policy) = 0;
    /// Brings our windows in front of those of other applications.
    virtual void activate() = 0;
};

}
