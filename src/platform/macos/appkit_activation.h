// SPDX-License-Identifier: MIT
#pragma once

#include "ports/application_activation.h"

namespace chimewell {

/// Dock icon and foreground by NSApplication. Main thread only.
class AppKitActivation final : public ApplicationActivation {
public:
    void setPolicy(ActivationPolicy policy) override;
    void activate() override;
};

}
