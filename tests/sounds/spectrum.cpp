// SPDX-License-Identifier: MIT
#include "spectrum.h"

#include "synthesis.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>
#include <utility>

namespace chimewell::test {
namespace {

using std::numbers::pi;

/// Radix 2, decimation in time, in place and without scaling.
void fourier(Spectrum& values, double sign)
{
    const auto size = values.size();
    for (std::size_t i = 1, mirrored = 0; i < size; ++i) {
        auto bit = size / 2;
        for (; (mirrored & bit) != 0; bit /= 2)
            mirrored ^= bit;
        mirrored ^= bit;
        if (i < mirrored) std::swap(values[i], values[mirrored]);
    }
    Spectrum turns(size / 2);
    for (std::size_t i = 0; i < turns.size(); ++i)
        turns[i] = std::polar(1.0, sign * 2.0 * pi * static_cast<double>(i) / static_cast<double>(size));
    for (std::size_t half = 1; half < size; half *= 2) {
        for (std::size_t start = 0; start < size; start += 2 * half) {
            for (std::size_t i = 0; i < half; ++i) {
                auto& even = values[start + i];
                auto& odd = values[start + i + half];
                const auto turned = odd * turns[i * (size / 2 / half)];
                odd = even - turned;
                even += turned;
            }
        }
    }
}

}

std::size_t roomyTransformSize(std::size_t samples)
{
    return std::bit_ceil(2 * samples);
}

Spectrum transform(std::span<const double> signal, std::size_t size)
{
    Spectrum values(size);
    std::ranges::copy(signal.first(std::min(signal.size(), size)), values.begin());
    fourier(values, -1);
    return values;
}

Spectrum inverseTransform(Spectrum spectrum)
{
    fourier(spectrum, 1);
    for (auto& value : spectrum)
        value /= static_cast<double>(spectrum.size());
    return spectrum;
}

std::vector<double> powerSpectrum(std::span<const double> signal, std::size_t size)
{
    const auto bins = transform(signal, size);
    std::vector<double> power(size / 2 + 1);
    std::ranges::transform(std::span(bins).first(power.size()), power.begin(),
                           [](const auto& bin) { return std::norm(bin); });
    return power;
}

double binFrequency(std::size_t bin, std::size_t size)
{
    const double step = sampleRate / static_cast<double>(size);
    return bin <= size / 2 ? static_cast<double>(bin) * step : -static_cast<double>(size - bin) * step;
}

std::vector<Signal> framesOf(std::span<const double> signal, std::size_t window, std::size_t hop)
{
    Signal padded(window / 2 + signal.size() + window);
    std::ranges::copy(signal, padded.begin() + static_cast<std::ptrdiff_t>(window / 2));
    std::vector<Signal> frames;
    for (std::size_t start = 0; start + window <= padded.size(); start += hop) {
        const auto frame = std::span(padded).subspan(start, window);
        frames.emplace_back(frame.begin(), frame.end());
    }
    return frames;
}

void taper(Signal& frame)
{
    const double last = static_cast<double>(frame.size() - 1);
    for (std::size_t i = 0; i < frame.size(); ++i)
        frame[i] *= 0.5 - 0.5 * std::cos(2.0 * pi * static_cast<double>(i) / last);
}

}
