// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace chimewell {

/// A square drawing without colour: how much each pixel is covered.
struct AlphaMask {
    int size = 0;                    ///< Pixels in a row, and rows.
    std::vector<std::uint8_t> alpha; ///< Row by row from the top.
    bool operator==(const AlphaMask&) const = default;
};

/// The system symbol of that name, as large as it fits into the middle of the square; nothing when the system
/// has none of that name. Main thread only.
std::optional<AlphaMask> systemSymbol(std::string_view name, int size);

}
