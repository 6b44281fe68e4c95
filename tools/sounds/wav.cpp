// SPDX-License-Identifier: MIT
#include "wav.h"

namespace chimewell {
namespace {

void append(std::string& out, std::uint32_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        out += static_cast<char>(value >> (8 * i) & 0xff);
}

}

std::string encodeWav(std::span<const std::int16_t> samples, int rate)
{
    constexpr std::uint32_t sampleBytes = sizeof(std::int16_t);
    constexpr std::uint32_t uncompressed = 1;
    constexpr std::uint32_t channels = 1;
    constexpr std::uint32_t formatBytes = 16;
    constexpr std::uint32_t beforeData = 36; // of what the RIFF size counts
    const auto dataBytes = static_cast<std::uint32_t>(samples.size()) * sampleBytes;
    const auto framesPerSecond = static_cast<std::uint32_t>(rate);

    std::string out = "RIFF";
    append(out, beforeData + dataBytes, 4);
    out += "WAVEfmt ";
    append(out, formatBytes, 4);
    append(out, uncompressed, 2);
    append(out, channels, 2);
    append(out, framesPerSecond, 4);
    append(out, framesPerSecond * sampleBytes, 4);
    append(out, sampleBytes, 2);
    append(out, sampleBytes * 8, 2);
    out += "data";
    append(out, dataBytes, 4);
    for (const auto sample : samples)
        append(out, static_cast<std::uint16_t>(sample), 2);
    return out;
}

}
