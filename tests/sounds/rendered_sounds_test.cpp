// SPDX-License-Identifier: MIT
// What the tool has written: the files that the application looks for, all of them equally loud.
#include "synthesis.h"
#include "values/sound_option.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace chimewell::test {
namespace {

/// Full scale is 1.
std::vector<double> samplesOf(const std::string& file)
{
    std::vector<double> samples;
    for (std::size_t i = 44; i + 1 < file.size(); i += 2) {
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
    std::vector<double> powers;
    for (std::size_t end = samplesIn(10); end < sums.size(); ++end)
        powers.push_back(sums[end] - sums[end - samplesIn(10)]);
    const double least = std::ranges::max(powers) / 100.0;
    double power = 0;
    int count = 0;
    for (std::size_t n = 0; n < powers.size(); ++n) {
        if (powers[n] <= least) continue;
        const double x = signal[n + samplesIn(5)];
        power += x * x;
        ++count;
    }
    return -0.691 + 10.0 * std::log10(power / count);
}

TEST(RenderedSounds, AreTheOnesThatCanBeChosenEquallyLoudAndSilentAtBothEnds)
{
    const auto magnitude = [](double x) { return std::abs(x); };
    std::set<std::string> rendered;
    for (const auto& entry : std::filesystem::directory_iterator(CHIMEWELL_RENDERED_SOUNDS)) {
        SCOPED_TRACE(entry.path());
        rendered.insert(entry.path().stem());
        std::ifstream in(entry.path(), std::ios::binary);
        const std::string file{std::istreambuf_iterator<char>(in), {}};
        EXPECT_EQ(file.substr(0, 4) + file.substr(8, 8), "RIFFWAVEfmt ");
        EXPECT_EQ(file.substr(20, 16), std::string("\1\0\1\0\x80\xbb\0\0\0\x77\1\0\2\0\x10\0", 16));

        const auto signal = samplesOf(file);
        ASSERT_GT(signal.size(), samplesIn(20));
        EXPECT_EQ(signal.front(), 0);
        EXPECT_EQ(std::ranges::max(std::span(signal).last(samplesIn(closingSilence)), {}, magnitude), 0);
        EXPECT_LE(20.0 * std::log10(magnitude(std::ranges::max(signal, {}, magnitude))), -3.0);
        EXPECT_NEAR(loudness(signal), -20.0, 1.0);
    }
    EXPECT_EQ(rendered, std::set<std::string>(playableSoundNames.begin(), playableSoundNames.end()));
}

}
}
