// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace chimewell {

/// Opens another window, or brings it forward: there is one of each.
struct Windows {
    std::function<void()> openSettings;
    std::function<void()> openWalkthrough;
};

}
