// SPDX-License-Identifier: MIT
// The recipes of the alert sounds. The file's grammar and the meaning of every field are in
// resources/sounds/README.md. Times are milliseconds, frequencies hertz, levels decibels and
// pitches semitones.
#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace chimewell {

/// One echo off a wall of the room that all sounds share.
struct Reflection {
    double delay = 0;
    double level = 0;
};

/// A moment at which every voice of a sound is struck. Decays wait until `hold` has passed.
struct Hit {
    double time = 0;
    double semitones = 0;
    double level = 0;
    double hold = 0;
};

struct Partial {
    double ratio = 1; ///< To the tone's frequency.
    double level = 0;
    double t60 = 0;   ///< Time in which it falls by 60 dB.
    double phase = 0; ///< In turns.
};

struct Tone {
    double frequency = 0;
    double glide = 0; ///< Where the pitch starts, relative to where it settles.
    double glideTime = 1;
    double vibratoRate = 0;
    double vibratoDepth = 0; ///< In cents.
    double fmRatio = 1;
    double fmIndex = 0;
    double fmT60 = 1e9;
    std::vector<Partial> partials;
};

struct Noise {
    double t60 = 0;
    std::uint32_t seed = 1; ///< Never 0, from which the generator would not leave.
};

enum class FilterKind : std::uint8_t { lowPass, bandPass, highPass };

struct Filter {
    FilterKind kind = FilterKind::lowPass;
    double frequency = 0;
    double q = 0.7071;
    double sweep = 0; ///< Where the centre starts, relative to where it settles.
    double sweepTime = 1;
};

struct Voice {
    double level = 0;
    double attack = 0;
    double tremoloRate = 0; ///< 0 for none.
    double tremoloDepth = 1;
    double tremoloShape = 1; ///< Above 1, the beats grow narrower.
    std::variant<Tone, Noise> source;
    std::optional<Filter> filter;
};

struct SoundRecipe {
    std::string name; ///< Letters and digits: it becomes a file name.
    std::string idea;
    double length = 0;
    double gain = 0;
    double room = -100; ///< Level of the reflections; -100 or less is no room at all.
    double fade = 40;
    std::vector<Hit> hits;
    std::vector<Voice> voices;
};

struct RecipeBook {
    std::vector<Reflection> reflections;
    std::vector<SoundRecipe> sounds; ///< In the order of the file, no name twice.
};

struct RecipeError {
    int line = 0; ///< From 1. A fault of a whole sound is reported where the sound begins.
    std::string text;
};

/// Every sound of the result can be rendered: it has hits inside its length and voices with
/// something to play, and its filters stay below half the sample rate. Stops at the first error.
std::expected<RecipeBook, RecipeError> parseRecipes(std::string_view text);

}
