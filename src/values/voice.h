// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace chimewell {

/// A voice of the desktop's speech service.
struct Voice {
    std::string identifier; ///< What the settings store.
    std::string name;
    std::string language; ///< BCP 47 tag, for example en-US.
    bool operator==(const Voice&) const = default;
};

}
