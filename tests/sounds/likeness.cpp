// SPDX-License-Identifier: MIT
#include "likeness.h"

#include "synthesis.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <limits>
#include <numeric>
#include <utility>

namespace chimewell::test {
namespace {

constexpr double lowestBand = 200;   // Hz
constexpr double highestBand = 7000; // Hz
constexpr std::size_t window = 1024; // samples, 21 ms
constexpr double floorDepth = 40;    // dB
constexpr double audible = 5;        // dB above the floor
constexpr double stretchCost = 3;    // dB for each step that stretches one of the two

using MelBand = std::vector<double>; // weights of the bins

double mel(double f)
{
    return 2595.0 * std::log10(1.0 + f / 700.0);
}

std::array<MelBand, melBands> melBank()
{
    const auto edge = [](std::size_t i) {
        const double step = (mel(highestBand) - mel(lowestBand)) / (melBands + 1);
        return 700.0 * (std::pow(10.0, (mel(lowestBand) + static_cast<double>(i) * step) / 2595.0) - 1.0);
    };
    std::array<MelBand, melBands> bank;
    for (std::size_t band = 0; band < melBands; ++band) {
        for (std::size_t bin = 0; bin <= window / 2; ++bin) {
            const double f = binFrequency(bin, window);
            const double rise = (f - edge(band)) / (edge(band + 1) - edge(band));
            const double fall = (edge(band + 2) - f) / (edge(band + 2) - edge(band + 1));
            bank[band].push_back(std::max(0.0, std::min(rise, fall)));
        }
    }
    return bank;
}

}

Picture pictureOf(std::span<const double> signal)
{
    static const auto bank = melBank();
    Picture picture;
    double loudest = -std::numeric_limits<double>::infinity();
    for (auto& frame : framesOf(signal, window, samplesIn(10))) {
        taper(frame);
        const auto power = powerSpectrum(frame, window);
        auto& row = picture.emplace_back();
        std::ranges::transform(bank, row.begin(), [&](const MelBand& band) {
            return 10.0 * std::log10(std::inner_product(band.begin(), band.end(), power.begin(), 1e-20));
        });
        loudest = std::max(loudest, std::ranges::max(row));
    }
    for (auto& row : picture)
        for (auto& cell : row)
            cell = std::max(cell - loudest + floorDepth, 0.0);

    const auto heard = [](const auto& row) { return std::ranges::max(row) > audible; };
    const auto first = std::ranges::find_if(picture, heard);
    const auto last = std::find_if(picture.rbegin(), picture.rend(), heard).base();
    return {first, last};
}

double distance(const Picture& a, const Picture& b)
{
    // A step weighs as much as the louder of its two frames, so that long quiet tails do not make
    // everything alike.
    struct Path {
        double cost = 0;
        double weight = 0;
        auto operator<=>(const Path&) const = default;
    };
    constexpr Path none{std::numeric_limits<double>::infinity(), 0};
    std::vector<Path> above(b.size(), none);
    std::vector<Path> row(b.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
        for (std::size_t j = 0; j < b.size(); ++j) {
            double squares = 0;
            for (std::size_t band = 0; band < melBands; ++band)
                squares += (a[i][band] - b[j][band]) * (a[i][band] - b[j][band]);
            const double weight = std::max(std::ranges::max(a[i]), std::ranges::max(b[j])) / floorDepth;
            const auto stretched = [&](Path path) {
                return Path{path.cost + stretchCost * weight, path.weight};
            };
            Path best = i == 0 && j == 0 ? Path{} : stretched(above[j]);
            if (j > 0) best = std::min({best, above[j - 1], stretched(row[j - 1])});
            row[j] = {best.cost + weight * std::sqrt(squares / melBands), best.weight + weight};
        }
        std::swap(above, row);
    }
    return above.back().cost / above.back().weight;
}

}
