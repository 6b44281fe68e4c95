// SPDX-License-Identifier: MIT
#include "platform/linux/sound/wav_file.h"

#include <chrono>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using namespace std::literals;

// 16 bits, two channels, 8,000 frames a second
constexpr auto format = "fmt \x10\0\0\0\x01\0\x02\0\x40\x1F\0\0\0\x7D\0\0\x04\0\x10\0"sv;
constexpr auto twoFrames = "data\x08\0\0\0abcdefgh"sv;

std::string riff(std::string_view chunks)
{
    std::string bytes = "RIFF";
    bytes += static_cast<char>(chunks.size() + 4);
    bytes += "\0\0\0WAVE"sv;
    bytes += chunks;
    return bytes;
}

std::string joined(std::string_view one, std::string_view two, std::string_view three = {})
{
    return std::string(one).append(two).append(three);
}

std::string withFormatByte(std::size_t place, char value)
{
    std::string changed(format);
    changed[8 + place] = value;
    return riff(joined(changed, twoFrames));
}

TEST(WavFileTest, ReadsFormatAndSamples)
{
    const std::string plain = riff(joined(format, twoFrames));
    const std::string withOtherChunks =
        riff(joined("LIST\x03\0\0\0abc\0"sv, format, "junk\0\0\0\0data\x08\0\0\0abcdefgh"sv));
    for (const std::string& bytes : {plain, withOtherChunks, plain + "trailing"}) {
        const WavFile file = parseWavFile(bytes).value_or(WavFile{});
        EXPECT_EQ(file.framesPerSecond, 8000U);
        EXPECT_EQ(file.channels, 2);
        EXPECT_EQ(file.samples, "abcdefgh");
    }
}

TEST(WavFileTest, RoundsTheDurationUp)
{
    const WavFile file{.framesPerSecond = 8000, .channels = 1, .samples = std::string(16002, '\0')};
    EXPECT_EQ(file.duration(), 1001ms);
}

TEST(WavFileTest, RefusesWhatItCannotPlay)
{
    const std::string plain = riff(joined(format, twoFrames));
    for (std::size_t size = 0; size < plain.size(); ++size)
        EXPECT_FALSE(parseWavFile(plain.substr(0, size))) << "cut to " << size;

    const struct {
        const char* what;
        std::string bytes;
    } cases[] = {
        {"floating point", withFormatByte(0, 3)},
        {"three channels", withFormatByte(2, 3)},
        {"no channels", withFormatByte(2, 0)},
        {"no rate", withFormatByte(5, 0)},
        {"a frame of another size", withFormatByte(12, 2)},
        {"8 bits", withFormatByte(14, 8)},
        {"data before the format", riff(joined(twoFrames, format))},
        {"no data chunk", riff(format)},
        {"empty data", riff(joined(format, "data\0\0\0\0"sv))},
        {"half a frame", riff(joined(format, "data\x06\0\0\0abcdef"sv))},
        {"a chunk larger than the file", riff(joined(format, "data\xFC\xFF\xFF\xFF"
                                                             "abcd"sv))},
        {"a short format", riff(joined("fmt \x04\0\0\0\x01\0\x02\0"sv, twoFrames))},
        {"another container", "RIFX" + plain.substr(4)},
        {"another content", plain.substr(0, 8) + "AVI " + plain.substr(12)},
    };
    for (const auto& each : cases)
        EXPECT_FALSE(parseWavFile(each.bytes)) << each.what;
}

}
}
