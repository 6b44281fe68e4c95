// SPDX-License-Identifier: MIT
#pragma once

#include <complex>
#include <cstddef>
#include <span>
#include <vector>

namespace chimewell::test {

using Signal = std::vector<double>; ///< Full scale 1, at the rate the sounds are rendered at.
using Spectrum = std::vector<std::complex<double>>;

/// The smallest power of two in which `samples` fit twice, so that filtering does not wrap around.
std::size_t roomyTransformSize(std::size_t samples);

/// All `size` bins of the signal, padded with silence; `size` is a power of two.
Spectrum transform(std::span<const double> signal, std::size_t size);
Spectrum inverseTransform(Spectrum spectrum);

/// Of the bins from 0 to half the sample rate.
std::vector<double> powerSpectrum(std::span<const double> signal, std::size_t size);

/// Centre of a bin in Hz; negative in the upper half.
double binFrequency(std::size_t bin, std::size_t size);

/// Stretches of `window` samples, one every `hop`, the first centred on the signal's first sample.
std::vector<Signal> framesOf(std::span<const double> signal, std::size_t window, std::size_t hop);

/// Hann window.
void taper(Signal& frame);

}
