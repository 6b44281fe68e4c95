// SPDX-License-Identifier: MIT
#include "figures.h"

#include "loudness.h"
#include "small_speaker.h"
#include "synthesis.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <complex>
#include <cstddef>
#include <numbers>
#include <numeric>
#include <utility>
#include <vector>

namespace chimewell::test {
namespace {

double decibels(double ratio)
{
    return 20.0 * std::log10(std::max(ratio, 1e-10));
}

double rms(std::span<const double> signal)
{
    const double power = std::inner_product(signal.begin(), signal.end(), signal.begin(), 0.0);
    return std::sqrt(power / static_cast<double>(signal.size()));
}

double attackTime(std::span<const double> signal)
{
    // The analytic signal, whose magnitude is the envelope: no negative frequencies.
    auto bins = transform(signal, roomyTransformSize(signal.size()));
    for (std::size_t i = 1; i < bins.size(); ++i)
        bins[i] *= i < bins.size() / 2 ? 2.0 : i > bins.size() / 2 ? 0.0 : 1.0;
    bins = inverseTransform(std::move(bins));
    Signal envelope(samplesIn(20)); // the first peak lies within
    std::ranges::transform(std::span(bins).first(envelope.size()), envelope.begin(),
                           [](const auto& value) { return std::abs(value); });
    const double peak = std::ranges::max(envelope);
    const auto reaches = [&](double share) {
        return std::ranges::find_if(envelope, [=](double e) { return e >= share * peak; });
    };
    return static_cast<double>(reaches(0.9) - reaches(0.1)) * 1000.0 / sampleRate;
}

/// Sum of a power spectrum between two frequencies in Hz.
double energy(std::span<const double> power, double low, double high)
{
    const auto size = 2 * (power.size() - 1);
    double sum = 0;
    for (std::size_t i = 0; i < power.size(); ++i) {
        const double f = binFrequency(i, size);
        if (f >= low && f <= high) sum += power[i];
    }
    return sum;
}

/// Energy from the first bin above `low` Hz on. Transformed directly, for 10 ms are no power of two
/// and padding would move the bins: the highest partial of Glass lies only 8 Hz below 5 kHz, so
/// that the figure depends on them.
double energyAbove(std::span<const double> frame, double low)
{
    const auto size = frame.size();
    std::vector<std::complex<double>> turns(size);
    for (std::size_t i = 0; i < size; ++i)
        turns[i] =
            std::polar(1.0, 2.0 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(size));
    double sum = 0;
    for (std::size_t bin = 0; bin <= size / 2; ++bin) {
        if (binFrequency(bin, size) <= low) continue;
        std::complex<double> value;
        for (std::size_t i = 0; i < size; ++i)
            value += frame[i] * turns[i * bin % size];
        sum += std::norm(value);
    }
    return sum;
}

double centroid(std::span<const double> power)
{
    const auto size = 2 * (power.size() - 1);
    double weighted = 0;
    for (std::size_t i = 0; i < power.size(); ++i)
        weighted += power[i] * binFrequency(i, size);
    return weighted / energy(power, 0, sampleRate);
}

}

double truePeak(std::span<const double> signal)
{
    constexpr std::size_t factor = 4;
    const auto bins = transform(signal, roomyTransformSize(signal.size()));
    const auto half = static_cast<std::ptrdiff_t>(bins.size() / 2);
    Spectrum wide(factor * bins.size());
    std::copy(bins.begin(), bins.begin() + half, wide.begin());
    std::copy(bins.end() - half, bins.end(), wide.end() - half);
    double peak = 0;
    for (const auto& value : inverseTransform(std::move(wide)))
        peak = std::max(peak, std::abs(value.real()));
    return decibels(peak * factor);
}

Figures measure(std::span<const double> signal, double fade)
{
    const auto shortWindow = samplesIn(10);
    double loudest = 0;
    double loudestSplash = 0;
    double loudestHigh = 0;
    for (auto& frame : framesOf(signal, shortWindow, shortWindow / 2)) {
        loudest = std::max(loudest, rms(frame));
        taper(frame);
        const double sum = std::inner_product(frame.begin(), frame.end(), frame.begin(), 0.0);
        loudestSplash = std::max(loudestSplash, sum * static_cast<double>(frame.size()) / 2.0); // Parseval
        loudestHigh = std::max(loudestHigh, energyAbove(frame, 5000));
    }
    const auto fadeStart = signal.size() - std::min(signal.size(), samplesIn(fade + closingSilence));
    const auto beforeFade = fadeStart - std::min(fadeStart, shortWindow);
    const auto power = powerSpectrum(signal, std::bit_ceil(signal.size()));
    const auto weighted = kWeighted(signal);
    const auto active = activePart(weighted);
    const double loud = loudness(weighted, active);
    constexpr double toMs = 1000.0 / sampleRate;

    return {.length = static_cast<double>(signal.size()) * toMs,
            .active = static_cast<double>(std::ranges::count(active, true)) * toMs,
            .truePeak = truePeak(signal),
            .loudness = loud,
            .momentary = momentaryLoudness(weighted),
            .dc = decibels(
                std::abs(std::reduce(signal.begin(), signal.end()) / static_cast<double>(signal.size()))),
            .attack = attackTime(signal),
            .centroid = centroid(power),
            .inBand = 100.0 * energy(power, 250, 5000) / energy(power, 0, sampleRate),
            .above5k = 10.0 * std::log10(loudestHigh / loudestSplash),
            .atFade = decibels(rms(signal.subspan(beforeFade, 2 * shortWindow)) / loudest),
            .smallSpeaker = loudness(kWeighted(throughSmallSpeaker(signal)), active) - loud};
}

}
