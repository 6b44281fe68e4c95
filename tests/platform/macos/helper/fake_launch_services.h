// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace chimewell::test {

/// Stands for CoreFoundation, Launch Services and the dynamic linker, as far as the helper calls them.
struct FakeLaunchServices {
    struct Launch {
        std::vector<std::string> items;
        std::optional<std::string> application; ///< Absent when the system is to choose.
        unsigned int flags = 0;

        bool operator==(const Launch&) const = default;
    };
    std::vector<Launch> launches;
    std::string executable; ///< Where the helper stands; unknown when empty.
    bool refusesUrls = false;
    std::size_t objects = 0; ///< That were made and not released.
};

/// Fresh before each test.
extern FakeLaunchServices launchServices;

}
