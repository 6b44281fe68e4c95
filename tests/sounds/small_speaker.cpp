// SPDX-License-Identifier: MIT
#include "small_speaker.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace chimewell::test {

Signal throughSmallSpeaker(std::span<const double> signal)
{
    auto bins = transform(signal, roomyTransformSize(signal.size()));
    for (std::size_t i = 0; i < bins.size(); ++i) {
        const double f = std::max(1.0, std::abs(binFrequency(i, bins.size())));
        bins[i] /= std::sqrt(1.0 + std::pow(300.0 / f, 8)) * std::sqrt(1.0 + std::pow(f / 8000.0, 8));
    }
    bins = inverseTransform(std::move(bins));
    Signal heard(signal.size());
    std::ranges::transform(std::span(bins).first(heard.size()), heard.begin(),
                           [](const auto& value) { return value.real(); });
    return heard;
}

}
