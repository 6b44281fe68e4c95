// SPDX-License-Identifier: MIT
#pragma once

#include "spectrum.h"

#include <span>

namespace chimewell::test {

/// What a small loudspeaker leaves of a signal: fourth-order edges at 300 Hz and 8 kHz.
Signal throughSmallSpeaker(std::span<const double> signal);

}
