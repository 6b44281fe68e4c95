// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>

namespace chimewell {

/// From the system's own source, in one call; at most 256 bytes.
void fillWithRandom(std::span<std::byte> bytes);

}
