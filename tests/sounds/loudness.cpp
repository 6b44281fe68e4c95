// SPDX-License-Identifier: MIT
#include "loudness.h"

#include "synthesis.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace chimewell::test {
namespace {

void biquad(Signal& signal, std::array<double, 3> b, std::array<double, 2> a)
{
    double s1 = 0;
    double s2 = 0;
    for (auto& x : signal) {
        const double y = b[0] * x + s1;
        s1 = b[1] * x - a[0] * y + s2;
        s2 = b[2] * x - a[1] * y;
        x = y;
    }
}

double lufs(double power)
{
    return -0.691 + 10.0 * std::log10(power + 1e-30);
}

/// The power of all samples before each one; one more value than there are samples.
std::vector<double> runningPower(std::span<const double> signal)
{
    std::vector<double> sums{0.0};
    sums.reserve(signal.size() + 1);
    for (const double x : signal)
        sums.push_back(sums.back() + x * x);
    return sums;
}

}

Signal kWeighted(std::span<const double> signal)
{
    Signal weighted(signal.begin(), signal.end());
    weighted.resize(signal.size() + samplesIn(100));
    // The standard's own coefficients, which hold for 48 kHz.
    static_assert(sampleRate == 48000);
    biquad(weighted, {1.53512485958697, -2.69169618940638, 1.19839281085285},
           {-1.69065929318241, 0.73248077421585});
    biquad(weighted, {1.0, -2.0, 1.0}, {-1.99004745483398, 0.99007225036621});
    return weighted;
}

std::vector<bool> activePart(std::span<const double> weighted)
{
    const auto half = samplesIn(5);
    const auto sums = runningPower(weighted);
    std::vector<double> smooth(weighted.size());
    for (std::size_t n = 0; n < smooth.size(); ++n)
        smooth[n] = sums[std::min(n + half, smooth.size())] - sums[n - std::min(n, half)];
    const double threshold = std::ranges::max(smooth) / 100.0;
    std::vector<bool> active;
    active.reserve(smooth.size());
    for (const double power : smooth)
        active.push_back(power > threshold);
    return active;
}

double loudness(std::span<const double> weighted, const std::vector<bool>& marked)
{
    double power = 0;
    for (std::size_t n = 0; n < weighted.size(); ++n)
        if (marked[n]) power += weighted[n] * weighted[n];
    return lufs(power / static_cast<double>(std::ranges::count(marked, true)));
}

double momentaryLoudness(std::span<const double> weighted)
{
    const auto block = samplesIn(400);
    const auto sums = runningPower(weighted);
    double loudest = 0;
    for (std::size_t n = 0; n < weighted.size(); ++n)
        loudest = std::max(loudest, sums[std::min(n + block, weighted.size())] - sums[n]);
    return lufs(loudest / static_cast<double>(block));
}

}
