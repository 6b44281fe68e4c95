// SPDX-License-Identifier: MIT
// Turns a recipe into samples. The model, formula by formula, is in resources/sounds/README.md.
#pragma once

#include "recipe.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace chimewell {

inline constexpr int sampleRate = 48000;

/// Every sound ends with this much digital silence, in milliseconds.
inline constexpr double closingSilence = 5;

std::size_t samplesIn(double milliseconds);

/// By how much an interval multiplies a frequency, in equal temperament.
double frequencyRatio(double semitones);

/// Mono, full scale 1. The first sample and the closing silence are exactly 0. Expects a sound that
/// `parseRecipes` accepted; the same recipe always gives the same samples.
std::vector<double> render(const SoundRecipe& sound, std::span<const Reflection> reflections);

/// Rounds to 16 bits, limits what exceeds them, adds no dither: silence stays silence.
std::vector<std::int16_t> toPcm(std::span<const double> signal);

}
