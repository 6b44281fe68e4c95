// SPDX-License-Identifier: MIT
#include "harness/sound_recording.h"

#include "harness/wait_until.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <numbers>
#include <string>

namespace chimewell::test {
namespace {

constexpr int rate = 8000;
constexpr int silence = 200; // of 32,767

}

int soundStreams()
{
    return static_cast<int>(std::ranges::count(run({"pactl", "list", "short", "sink-inputs"}).output, '\n'));
}

SoundRecording::SoundRecording()
{
    recorder_ = std::make_unique<ChildProcess>(
        std::vector<std::string>{"parec", "--device=silent.monitor", "--format=s16le", "--rate=8000",
                                 "--channels=1", "--latency-msec=20", "--raw", folder_.path() / "recording"});
    waitUntil([this] { return duration() > 0; });
}

double SoundRecording::duration() const
{
    return static_cast<double>(samples().size()) / rate;
}

double SoundRecording::onset() const
{
    const std::vector<Stretch> heard = stretches(0.01);
    return heard.empty() ? -1 : heard.front().from;
}

double SoundRecording::silenceAtEnd() const
{
    const std::vector<Stretch> heard = stretches(0.01);
    return heard.empty() ? duration() : duration() - heard.back().to;
}

double SoundRecording::soundingTime() const
{
    double sum = 0;
    for (const Stretch& each : stretches(0.01))
        sum += each.to - each.from;
    return sum;
}

double SoundRecording::amplitude(double frequency, double from, double to) const
{
    // Goertzel's algorithm, with a window whose ends fade.
    const std::vector<std::int16_t> all = samples();
    const auto first = static_cast<std::size_t>(from * rate);
    const std::size_t last = std::min(static_cast<std::size_t>(to * rate), all.size());
    if (last <= first) return 0;
    const double factor = 2 * std::cos(2 * std::numbers::pi * frequency / rate);
    const auto count = static_cast<double>(last - first);
    double one = 0;
    double two = 0;
    for (std::size_t i = first; i < last; ++i) {
        const double window = 1 - std::cos(2 * std::numbers::pi * static_cast<double>(i - first) / count);
        const double next = window * all[i] / 32767.0 + factor * one - two;
        two = one;
        one = next;
    }
    return 2 * std::sqrt(one * one + two * two - factor * one * two) / count;
}

std::vector<SoundRecording::Stretch> SoundRecording::stretches(double pause) const
{
    std::vector<Stretch> result;
    const std::vector<std::int16_t> all = samples();
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (std::abs(all[i]) < silence) continue;
        const double now = static_cast<double>(i) / rate;
        if (result.empty() || now - result.back().to > pause) result.push_back({.from = now, .to = now});
        result.back().to = now;
    }
    return result;
}

std::vector<std::int16_t> SoundRecording::samples() const
{
    const std::string bytes = folder_.read("recording");
    std::vector<std::int16_t> result(bytes.size() / sizeof(std::int16_t));
    if (!bytes.empty()) std::memcpy(result.data(), bytes.data(), result.size() * sizeof(std::int16_t));
    return result;
}

}
