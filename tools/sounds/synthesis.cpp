// SPDX-License-Identifier: MIT
#include "synthesis.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace chimewell {
namespace {

using std::numbers::pi;

constexpr double wallCutoff = 2800;  // Hz: the walls swallow what is above
constexpr double rumbleCutoff = 160; // Hz: below are DC and what small speakers cannot play
constexpr double rumbleQ = 0.7071;
constexpr double noRoom = -100;
const double ln1000 = std::log(1000.0); // a fall by 60 dB

double secondsAt(std::size_t sample)
{
    return static_cast<double>(sample) / sampleRate;
}

double amplitude(double decibels)
{
    return std::pow(10.0, decibels / 20.0);
}

/// Per second, of something that falls by 60 dB in `t60` milliseconds.
double decayRate(double t60)
{
    return ln1000 * 1000.0 / t60;
}

/// State-variable filter with trapezoidal integration. Its band-pass peaks at 0 dB.
class FilterState {
public:
    FilterState(FilterKind kind, double q) : kind_(kind), k_(1.0 / q) {}

    double next(double x, double centre)
    {
        const double g = std::tan(pi * centre / sampleRate);
        const double a1 = 1.0 / (1.0 + g * (g + k_));
        const double a2 = g * a1;
        const double a3 = g * a2;
        const double v3 = x - s2_;
        const double v1 = a1 * s1_ + a2 * v3;
        const double v2 = s2_ + a2 * s1_ + a3 * v3;
        s1_ = 2.0 * v1 - s1_;
        s2_ = 2.0 * v2 - s2_;
        if (kind_ == FilterKind::lowPass) return v2;
        return kind_ == FilterKind::bandPass ? k_ * v1 : x - k_ * v1 - v2;
    }

private:
    FilterKind kind_;
    double k_;
    double s1_ = 0;
    double s2_ = 0;
};

/// Waves the pitch: how far the tone's own time has come after `t` seconds.
double warpedTime(const Tone& tone, double t)
{
    const double bend = frequencyRatio(tone.glide) - 1.0;
    const double bendTime = tone.glideTime / 1000.0;
    double warped = t + bend * bendTime * (1.0 - std::exp(-t / bendTime));
    if (tone.vibratoRate > 0) {
        const double w = 2.0 * pi * tone.vibratoRate;
        const double wobble = frequencyRatio(tone.vibratoDepth / 100.0) - 1.0;
        warped += wobble * (1.0 - std::cos(w * t)) / w;
    }
    return warped;
}

double late(const Hit& hit, double t)
{
    return std::max(0.0, t - hit.hold / 1000.0);
}

std::vector<double> strike(const Tone& tone, const Hit& hit, std::size_t /*index*/, std::size_t count)
{
    struct Oscillator {
        double ratio, level, decay, phase;
    };
    std::vector<Oscillator> oscillators;
    oscillators.reserve(tone.partials.size());
    for (const auto& partial : tone.partials)
        oscillators.push_back(
            {partial.ratio, amplitude(partial.level), decayRate(partial.t60), 2.0 * pi * partial.phase});
    const double frequency = tone.frequency * frequencyRatio(hit.semitones);
    const double fmDecay = decayRate(tone.fmT60);

    std::vector<double> out(count);
    for (std::size_t n = 0; n < count; ++n) {
        const double t = secondsAt(n);
        const double base = 2.0 * pi * frequency * warpedTime(tone, t);
        const double fm =
            tone.fmIndex == 0 ? 0 : tone.fmIndex * std::exp(-fmDecay * t) * std::sin(tone.fmRatio * base);
        for (const auto& o : oscillators)
            out[n] += o.level * std::exp(-o.decay * late(hit, t)) * std::sin(o.ratio * base + o.phase + fm);
    }
    return out;
}

/// White noise by xorshift32. Each hit has a seed of its own, so that none repeats another.
std::vector<double> strike(const Noise& noise, const Hit& hit, std::size_t index, std::size_t count)
{
    constexpr int discarded = 16; // small seeds need some steps to fill all 32 bits
    auto state = noise.seed + static_cast<std::uint32_t>(index);
    const auto next = [&state] {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        return state / 2147483648.0 - 1.0;
    };
    for (int i = 0; i < discarded; ++i)
        next();
    const double decay = decayRate(noise.t60);
    std::vector<double> out(count);
    for (std::size_t n = 0; n < count; ++n)
        out[n] = next() * std::exp(-decay * late(hit, secondsAt(n)));
    return out;
}

/// Attack and tremolo.
double envelope(const Voice& voice, double t)
{
    const double attack = voice.attack / 1000.0;
    const double rise = t < attack ? 0.5 - 0.5 * std::cos(pi * t / attack) : 1.0;
    if (voice.tremoloRate <= 0) return rise;
    const double swing = std::pow(0.5 + 0.5 * std::cos(2.0 * pi * voice.tremoloRate * t), voice.tremoloShape);
    return rise * (1.0 - voice.tremoloDepth + voice.tremoloDepth * swing);
}

/// The first `count` samples from the moment of the hit on, before levels are applied.
std::vector<double> strike(const Voice& voice, const Hit& hit, std::size_t index, std::size_t count)
{
    auto out =
        std::visit([&](const auto& source) { return strike(source, hit, index, count); }, voice.source);
    for (std::size_t n = 0; n < count; ++n)
        out[n] *= envelope(voice, secondsAt(n));
    if (!voice.filter) return out;

    FilterState filter(voice.filter->kind, voice.filter->q);
    const double settled = voice.filter->frequency * frequencyRatio(hit.semitones);
    const double start = frequencyRatio(voice.filter->sweep) - 1.0;
    const double sweepTime = voice.filter->sweepTime / 1000.0;
    for (std::size_t n = 0; n < count; ++n)
        out[n] = filter.next(out[n], settled * (1.0 + start * std::exp(-secondsAt(n) / sweepTime)));
    return out;
}

/// Early reflections only: delayed copies of the sound, dulled by the walls.
void addRoom(std::vector<double>& mix, std::span<const Reflection> reflections, double level)
{
    if (level <= noRoom) return;
    const double a = 1.0 - std::exp(-2.0 * pi * wallCutoff / sampleRate);
    std::vector<double> dull;
    dull.reserve(mix.size());
    for (double y = 0; const double x : mix)
        dull.push_back(y += a * (x - y));
    for (const auto& reflection : reflections) {
        const auto delay = samplesIn(reflection.delay);
        const double gain = amplitude(reflection.level + level);
        for (std::size_t n = delay; n < mix.size(); ++n)
            mix[n] += gain * dull[n - delay];
    }
}

/// Fades the end out and leaves the closing silence behind it.
double closing(std::size_t n, std::size_t total, double fadeTime)
{
    const double left = static_cast<double>(total) - static_cast<double>(samplesIn(closingSilence) + n);
    const double fade = static_cast<double>(samplesIn(fadeTime));
    if (left <= 0) return 0;
    return left < fade ? 0.5 - 0.5 * std::cos(pi * left / fade) : 1.0;
}

}

std::size_t samplesIn(double milliseconds)
{
    return static_cast<std::size_t>(std::max(0.0, std::floor(milliseconds * sampleRate / 1000.0 + 0.5)));
}

double frequencyRatio(double semitones)
{
    return std::pow(2.0, semitones / 12.0);
}

std::vector<double> render(const SoundRecipe& sound, std::span<const Reflection> reflections)
{
    const auto total = samplesIn(sound.length);
    std::vector<double> mix(total);
    for (const auto& voice : sound.voices) {
        for (std::size_t index = 0; index < sound.hits.size(); ++index) {
            const auto& hit = sound.hits[index];
            const auto start = std::min(samplesIn(hit.time), total);
            const double gain = amplitude(voice.level + hit.level);
            const auto struck = strike(voice, hit, index, total - start);
            for (std::size_t n = 0; n < struck.size(); ++n)
                mix[start + n] += gain * struck[n];
        }
    }
    addRoom(mix, reflections, sound.room);
    FilterState rumble(FilterKind::highPass, rumbleQ);
    const double gain = amplitude(sound.gain);
    for (std::size_t n = 0; n < total; ++n)
        mix[n] = rumble.next(mix[n], rumbleCutoff) * (gain * closing(n, total, sound.fade));
    return mix;
}

std::vector<std::int16_t> toPcm(std::span<const double> signal)
{
    std::vector<std::int16_t> pcm;
    pcm.reserve(signal.size());
    for (const double x : signal)
        pcm.push_back(
            static_cast<std::int16_t>(std::clamp(std::floor(x * 32767.0 + 0.5), -32768.0, 32767.0)));
    return pcm;
}

}
