// SPDX-License-Identifier: MIT
// How alike two sounds are. Spectra over time are compared, not rhythm or melody as an ear hears them.
#pragma once

#include "spectrum.h"

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace chimewell::test {

inline constexpr std::size_t melBands = 30;

/// dB above a floor 40 dB under the loudest cell, band by band, one row every 10 ms. Silence before
/// and after is cut off.
using Picture = std::vector<std::array<double, melBands>>;

Picture pictureOf(std::span<const double> signal);

/// RMS dB per cell along the best path of dynamic time warping; 0 for a picture and itself.
double distance(const Picture& a, const Picture& b);

}
