// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace chimewell {

/// Random values.
class Random {
public:
    virtual ~Random() = default;
    /// Uniform in [0, 1], both ends included.
    virtual double unit() = 0;
    /// A fresh version 4 UUID in upper-case canonical form (RFC 9562).
    virtual std::string uuid() = 0;
};

}
