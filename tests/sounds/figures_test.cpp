// SPDX-License-Identifier: MIT
#include "figures.h"
#include "loudness.h"
#include "rendered_sounds.h"
#include "synthesis.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <iostream>
#include <limits>
#include <numbers>
#include <set>
#include <span>
#include <sstream>
#include <string>

namespace chimewell::test {
namespace {

using std::numbers::pi;

constexpr double anything = std::numeric_limits<double>::infinity();

struct Limit {
    const char* figure;
    double Figures::* value;
    double lowest;
    double highest;
    int decimals = 1;
};

// The only place where a limit stands as a number. The last three only inform.
constexpr Limit limits[] = {
    {"length ms", &Figures::length, 120, 1500, 0},
    {"true peak dBTP", &Figures::truePeak, -anything, -3},
    {"loudness LUFS", &Figures::loudness, -21, -19},
    {"DC dBFS", &Figures::dc, -anything, -60, 0},
    {"attack ms", &Figures::attack, 2, 8},
    {"250 Hz-5 kHz %", &Figures::inBand, 95, 100},
    {"above 5 kHz dB", &Figures::above5k, -anything, -30},
    {"at the fade dB", &Figures::atFade, -anything, -36},
    {"small speaker LU", &Figures::smallSpeaker, -3, anything},
    {"active ms", &Figures::active, 0, anything, 0},
    {"400 ms LUFS", &Figures::momentary, -anything, anything},
    {"centroid Hz", &Figures::centroid, 0, anything, 0},
};

Signal sine(double frequency, double turns)
{
    Signal signal(sampleRate);
    for (std::size_t n = 0; n < signal.size(); ++n)
        signal[n] = std::sin(2.0 * pi * (frequency * static_cast<double>(n) / sampleRate + turns));
    return signal;
}

TEST(Measures, ReadKnownValuesFromASine)
{
    // BS.1770: a full-scale sine of 997 Hz reads -3.01.
    const auto weighted = kWeighted(sine(997, 0));
    EXPECT_NEAR(loudness(weighted, activePart(weighted)), -3.01, 0.05);
    EXPECT_NEAR(momentaryLoudness(weighted), -3.01, 0.05);

    // At a quarter of the rate all samples are at -3 dB while the wave between them is at 0. The
    // closing ramp keeps the step at the end of the signal from overshooting.
    auto between = sine(sampleRate / 4.0, 0.125);
    for (std::size_t n = 0; n < between.size(); ++n)
        between[n] *= std::sin(pi * static_cast<double>(n) / static_cast<double>(between.size()));
    EXPECT_NEAR(truePeak(between), 0, 0.05);

    const auto figures = measure(sine(1000, 0), 40);
    EXPECT_NEAR(figures.centroid, 1000, 5);
    EXPECT_NEAR(figures.atFade, 0, 0.1);
}

TEST(RenderedSounds, AreTheFourteenNamedOnes)
{
    const std::set<std::string> expected{"Basso", "Blow", "Bottle", "Frog", "Funk",   "Glass",     "Hero",
                                         "Morse", "Ping", "Pop",    "Purr", "Sosumi", "Submarine", "Tink"};
    std::set<std::string> rendered;
    for (const auto& [name, file] : renderedFiles()) {
        rendered.insert(name);
        const auto size = static_cast<unsigned char>(file.at(40)) |
                          static_cast<unsigned char>(file.at(41)) << 8 |
                          static_cast<unsigned char>(file.at(42)) << 16;
        EXPECT_EQ(file.substr(0, 4) + file.substr(8, 8), "RIFFWAVEfmt ") << name;
        EXPECT_EQ(file.substr(20, 16), std::string("\1\0\1\0\x80\xbb\0\0\0\x77\1\0\2\0\x10\0", 16)) << name;
        EXPECT_EQ(static_cast<std::size_t>(size) + 44, file.size()) << name;
    }
    EXPECT_EQ(rendered, expected);
}

TEST(RenderedSounds, BeginAndEndInSilence)
{
    for (const auto& [name, signal] : renderedSounds()) {
        EXPECT_EQ(signal.front(), 0) << name;
        const auto end = std::span(signal).last(samplesIn(5));
        EXPECT_TRUE(std::ranges::all_of(end, [](double x) { return x == 0; })) << name;
    }
}

TEST(RenderedSounds, KeepEveryLimit)
{
    std::ostringstream table;
    table << std::left << std::setw(10) << "";
    for (const auto& limit : limits)
        table << " | " << limit.figure;
    for (const auto& sound : recipeBook().sounds) {
        ASSERT_TRUE(renderedSounds().contains(sound.name)) << sound.name;
        const auto figures = measure(renderedSounds().at(sound.name), sound.fade);
        table << '\n' << std::left << std::setw(10) << sound.name << std::right << std::fixed;
        for (const auto& limit : limits) {
            const double value = figures.*limit.value;
            const auto width = static_cast<int>(std::string(limit.figure).size());
            table << " | " << std::setw(width) << std::setprecision(limit.decimals) << value;
            EXPECT_TRUE(limit.lowest <= value && value <= limit.highest)
                << sound.name << ": " << limit.figure << ' ' << value << ", wanted " << limit.lowest << " to "
                << limit.highest;
        }
    }
    std::cout << table.str() << '\n';
}

}
}
