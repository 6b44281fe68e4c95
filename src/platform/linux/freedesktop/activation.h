// SPDX-License-Identifier: MIT
#pragma once

#include "ports/application_activation.h"

#include <string>
#include <utility>

namespace chimewell {

/// The desktop's permission to bring a window forward, which came with the user's last click outside our
/// windows. Each token serves once.
class ActivationTokens {
public:
    /// Replaces the last one; empty when the click brought none.
    void put(std::string token) { token_ = std::move(token); }
    /// Empty when there is none, or it was taken before.
    [[nodiscard]] std::string take() { return std::exchange(token_, {}); }

private:
    std::string token_;
};

/// A Linux desktop lists windows and not applications, and raises a window when that asks for it.
class NoActivation final : public ApplicationActivation {
public:
    void setPolicy(ActivationPolicy) override {}
    void activate() override {}
};

}
