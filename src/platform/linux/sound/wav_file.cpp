// SPDX-License-Identifier: MIT
#include "platform/linux/sound/wav_file.h"

#include <fstream>
#include <system_error>

namespace chimewell {
namespace {

/// Takes bytes from the front. It fails when fewer are left than asked for, and then has none.
class Reader {
public:
    explicit Reader(std::string_view bytes) : bytes_(bytes) {}

    std::string_view take(std::size_t size)
    {
        if (bytes_.size() < size) hasFailed_ = true;
        if (hasFailed_) return {};
        const std::string_view taken = bytes_.substr(0, size);
        bytes_.remove_prefix(size);
        return taken;
    }
    std::size_t left() const { return bytes_.size(); }
    bool hasFailed() const { return hasFailed_; }

private:
    std::string_view bytes_;
    bool hasFailed_ = false;
};

std::uint32_t littleEndian(std::string_view bytes)
{
    std::uint32_t value = 0;
    for (std::size_t i = bytes.size(); i > 0; --i)
        value = value << 8 | static_cast<unsigned char>(bytes[i - 1]);
    return value;
}

bool readFormat(std::string_view chunk, WavFile& file)
{
    constexpr std::uint32_t pcm = 1;
    if (chunk.size() < 16 || littleEndian(chunk.substr(0, 2)) != pcm) return false;
    const std::uint32_t channels = littleEndian(chunk.substr(2, 2));
    const std::uint32_t rate = littleEndian(chunk.substr(4, 4));
    const std::uint32_t frame = littleEndian(chunk.substr(12, 2));
    const std::uint32_t bits = littleEndian(chunk.substr(14, 2));
    if (channels < 1 || channels > 2 || rate < 8'000 || rate > 192'000) return false;
    if (bits != 16 || frame != channels * 2) return false;
    file.channels = static_cast<std::uint8_t>(channels);
    file.framesPerSecond = rate;
    return true;
}

std::size_t frameBytes(const WavFile& file)
{
    return file.channels * std::size_t{2};
}

}

std::chrono::milliseconds WavFile::duration() const
{
    const std::size_t frames = samples.size() / frameBytes(*this);
    return std::chrono::milliseconds((frames * 1000 + framesPerSecond - 1) / framesPerSecond);
}

std::optional<WavFile> parseWavFile(std::string_view bytes)
{
    Reader reader(bytes);
    if (reader.take(4) != "RIFF") return std::nullopt;
    const std::uint32_t riffSize = littleEndian(reader.take(4));
    if (riffSize > reader.left() || reader.take(4) != "WAVE") return std::nullopt;

    WavFile file;
    for (;;) {
        const std::string_view id = reader.take(4);
        const std::string_view chunk = reader.take(littleEndian(reader.take(4)));
        if (reader.hasFailed()) return std::nullopt;
        if (id == "fmt " && file.channels == 0) {
            if (!readFormat(chunk, file)) return std::nullopt;
        } else if (id == "data") {
            if (file.channels == 0 || chunk.empty() || chunk.size() % frameBytes(file) != 0)
                return std::nullopt;
            file.samples = chunk;
            return file;
        }
        if (chunk.size() % 2 == 1) reader.take(1); // chunks start at even offsets
    }
}

std::optional<WavFile> readWavFile(const std::filesystem::path& path)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error || size > maxWavFileBytes) return std::nullopt;
    std::string bytes(size, '\0');
    std::ifstream stream(path, std::ios::binary);
    if (!stream.read(bytes.data(), static_cast<std::streamsize>(size))) return std::nullopt;
    return parseWavFile(bytes);
}

}
