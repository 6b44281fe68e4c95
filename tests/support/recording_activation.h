// SPDX-License-Identifier: MIT
#pragma once

#include "ports/application_activation.h"

#include <vector>

namespace chimewell::test {

/// Keeps what the application asked for.
class RecordingActivation : public ApplicationActivation {
public:
    void setPolicy(ActivationPolicy policy) override { policies.push_back(policy); }
    void activate() override { ++activations; }

    std::vector<ActivationPolicy> policies;
    int activations = 0;
};

}
