// SPDX-License-Identifier: MIT
#pragma once

#include "ports/clock.h"

namespace chimewell {

class PosixClock final : public Clock {
public:
    Date now() const override;
    Instant instant() const override;
};

}
