// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace chimewell {

/// How the desktop sees the application.
enum class ActivationPolicy : std::uint8_t {
    accessory, ///< In the menu bar only.
    regular,   ///< With an icon and a menu of its own among the running applications.
};

/// The application's own standing among the others.
class ApplicationActivation {
public:
    virtual ~ApplicationActivation() = default;
    virtual void setPolicy(ActivationPolicy policy) = 0;
    /// Brings our windows before those of other applications.
    virtual void activate() = 0;
};

}
