// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace chimewell {

/// A sound as a RIFF/WAVE file holds it: plain PCM, 16 bits, little-endian.
struct WavFile {
    std::uint32_t framesPerSecond = 0; ///< 8,000 to 192,000.
    std::uint8_t channels = 0;         ///< 1 or 2.
    std::string samples;               ///< Whole frames, at least one, channels interleaved.

    std::chrono::milliseconds duration() const;
};

/// Larger files are not read. A server buffers a whole sound of this size without dropping any of it.
inline constexpr std::size_t maxWavFileBytes = std::size_t{4} << 20;

/// Absent when `bytes` is not a complete file of the kind above. Chunks other than the first `fmt ` and
/// `data` are skipped.
std::optional<WavFile> parseWavFile(std::string_view bytes);

/// Absent also when there is no such regular file, or it is too large.
std::optional<WavFile> readWavFile(const std::filesystem::path& path);

}
