// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

namespace chimewell {

/// The desktop's permission to bring a window forward that came with the user's last click outside our
/// windows. Each serves once.
class ActivationTokens {
public:
    /// Replaces the last one; empty when the click brought none.
    void put(std::string token) { token_ = std::move(token); }
    /// Empty when there is none, or it was taken before.
    [[nodiscard]] std::string take() { return std::exchange(token_, {}); }

private:
    std::string token_;
};

}
