// SPDX-License-Identifier: MIT
#pragma once

#include "ports/random.h"

namespace chimewell::test {

/// Chance that is none: `next` is drawn every time, and identifiers count up.
class FixedRandom : public Random {
public:
    double unit() override { return next; }
    std::string uuid() override { return "uuid-" + std::to_string(++uuids); }

    double next = 0;
    int uuids = 0;
};

}
