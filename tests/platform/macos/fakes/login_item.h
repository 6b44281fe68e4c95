// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace chimewell::test::mac {

/// What the system knows of our start at log-in.
struct LoginItemRecord {
    long status = 0;                    ///< A value of SMAppServiceStatus.
    std::optional<std::string> refusal; ///< Why a change fails; absent when it works.
    std::vector<std::string> asked;     ///< "register", "unregister".
};

LoginItemRecord& loginItem();

}
