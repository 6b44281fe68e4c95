// SPDX-License-Identifier: MIT
// What the tool has written: the files that the application looks for, all of them equally loud.
#include "synthesis.h"
#include "values/sound_option.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace chimewell::test {
namespace {

constexpr std::size_t headerSize = 44;

/// Every file of the folder, by name without ending.
std::map<std::string, std::string> renderedFiles()
{
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(CHIMEWELL_RENDERED_SOUNDS)) {
        std::ifstream in(entry.path(), std::ios::binary);
        files[entry.path().stem().string()] = {std::istreambuf_iterator<char>(in), {}};
    }
    return files;
}

/// Full scale is 1.
std::vector<double> samplesOf(const std::string& file)
{
    std::vector<double> samples;
    for (std::size_t i = headerSize; i + 1 < file.size(); i += 2) {
        const auto low = static_cast<std::uint8_t>(file[i]);
        const auto high = static_cast<std::uint8_t>(file[i + 1]);
        samples.push_back(static_cast<std::int16_t>(low | high << 8) / 32768.0);
    }
    return samples;
}

void filter(std::vector<double>& signal, const double (&b)[3], const double (&a)[2])
{
    double s1 = 0;
    double s2 = 0;
    for (double& x : signal) {
        const double y = b[0] * x + s1;
        s1 = b[1] * x - a[0] * y + s2;
        s2 = b[2] * x - a[1] * y;
        x = y;
    }
}

/// LUFS (ITU-R BS.1770) of the part whose power, over 10 ms, is within 20 dB of the loudest: without tails
/// and rests.
double loudness(std::vector<double> signal)
{
    static_assert(sampleRate == 48000); // for which the standard's coefficients are
    signal.insert(signal.end(), samplesIn(100), 0.0);
    filter(signal, {1.53512485958697, -2.69169618940638, 1.19839281085285},
           {-1.69065929318241, 0.73248077421585});
    filter(signal, {1.0, -2.0, 1.0}, {-1.99004745483398, 0.99007225036621});
    std::vector<double> sums{0.0};
    for (const double x : signal)
        sums.push_back(sums.back() + x * x);
    const auto powerAround = [&](std::size_t n) {
        const auto half = samplesIn(5);
        return sums[std::min(n + half, signal.size())] - sums[n - std::min(n, half)];
    };
    double loudest = 0;
    for (std::size_t n = 0; n < signal.size(); ++n)
        loudest = std::max(loudest, powerAround(n));
    double power = 0;
    std::size_t count = 0;
    for (std::size_t n = 0; n < signal.size(); ++n) {
        if (powerAround(n) <= loudest / 100.0) continue;
        power += signal[n] * signal[n];
        ++count;
    }
    return -0.691 + 10.0 * std::log10(power / static_cast<double>(count));
}

TEST(RenderedSounds, AreTheOnesThatCanBeChosen)
{
    std::set<std::string> rendered;
    for (const auto& [name, file] : renderedFiles()) {
        rendered.insert(name);
        ASSERT_GT(file.size(), headerSize) << name;
        const auto byteAt = [&](std::size_t i) { return std::size_t{static_cast<std::uint8_t>(file[i])}; };
        EXPECT_EQ(file.substr(0, 4) + file.substr(8, 8), "RIFFWAVEfmt ") << name;
        EXPECT_EQ(file.substr(20, 16), std::string("\1\0\1\0\x80\xbb\0\0\0\x77\1\0\2\0\x10\0", 16)) << name;
        EXPECT_EQ((byteAt(40) | byteAt(41) << 8 | byteAt(42) << 16) + headerSize, file.size()) << name;
    }
    EXPECT_EQ(rendered, std::set<std::string>(playableSoundNames.begin(), playableSoundNames.end()));
}

TEST(RenderedSounds, AreEquallyLoudAndBeginAndEndInSilence)
{
    for (const auto& [name, file] : renderedFiles()) {
        const auto signal = samplesOf(file);
        EXPECT_EQ(signal.front(), 0) << name;
        const auto end = std::span(signal).last(samplesIn(closingSilence));
        EXPECT_TRUE(std::ranges::all_of(end, [](double x) { return x == 0; })) << name;
        const double peak =
            std::abs(*std::ranges::max_element(signal, {}, [](double x) { return std::abs(x); }));
        EXPECT_LE(20.0 * std::log10(peak), -3.0) << name;
        EXPECT_NEAR(loudness(signal), -20.0, 1.0) << name;
    }
}

}
}
