// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace chimewell {

/// A whole RIFF/WAVE file: one channel of uncompressed 16-bit samples.
std::string encodeWav(std::span<const std::int16_t> samples, int rate);

}
