// SPDX-License-Identifier: MIT
#pragma once

#include "spectrum.h"

#include <span>
#include <vector>

namespace chimewell::test {

/// Weighted as ITU-R BS.1770 says: a shelf for the head, then a roll-off of the lows. Followed by
/// 100 ms more than went in, in which the filters ring out.
Signal kWeighted(std::span<const double> signal);

/// Which samples of a weighted signal belong to the sound proper: their power, smoothed over 10 ms,
/// is within 20 dB of the loudest. Tails and rests are not.
std::vector<bool> activePart(std::span<const double> weighted);

/// LUFS of the marked samples of a weighted signal.
double loudness(std::span<const double> weighted, const std::vector<bool>& marked);

/// LUFS of the loudest 400 ms, silence counted in where the sound is shorter.
double momentaryLoudness(std::span<const double> weighted);

}
