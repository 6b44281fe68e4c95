// SPDX-License-Identifier: MIT
#pragma once

#include "spectrum.h"

#include <span>

namespace chimewell::test {

/// What the limits speak of. Times in ms, levels of signals in dB below full scale.
struct Figures {
    double length = 0;
    double active = 0; ///< How long it is within 20 dB of its loudest.
    double truePeak = 0;
    double loudness = 0;  ///< LUFS over the active part.
    double momentary = 0; ///< LUFS of the loudest 400 ms.
    double dc = 0;
    double attack = 0;       ///< From 10 to 90 % of the envelope's first peak.
    double centroid = 0;     ///< Hz.
    double inBand = 0;       ///< Percent of the energy between 250 Hz and 5 kHz.
    double above5k = 0;      ///< dB of the loudest 10 ms above 5 kHz, relative to the loudest 10 ms.
    double atFade = 0;       ///< dB where the closing fade begins, relative to the loudest 10 ms.
    double smallSpeaker = 0; ///< LU that a small loudspeaker adds; below 0, what it loses.
};

/// `fade` is the recipe's, in ms.
Figures measure(std::span<const double> signal, double fade);

/// dB of the highest point between the samples, by band-limited oversampling to four times the rate.
double truePeak(std::span<const double> signal);

}
