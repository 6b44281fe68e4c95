// SPDX-License-Identifier: MIT
#pragma once

#include "ports/random.h"

namespace chimewell {

/// Random numbers from the operating system.
class RandomDevice final : public Random {
public:
    double unit() override;
    std::string uuid() override;
};

}
