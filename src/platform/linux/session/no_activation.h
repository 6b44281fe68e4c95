// SPDX-License-Identifier: MIT
#pragma once

#include "ports/application_activation.h"

namespace chimewell {

/// A Linux desktop lists windows and not applications, and raises a window when that asks for it.
class NoActivation final : public ApplicationActivation {
public:
    void setPolicy(ActivationPolicy) override {}
    void activate() override {}
};

}
