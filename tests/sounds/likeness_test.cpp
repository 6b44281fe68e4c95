// SPDX-License-Identifier: MIT
#include "likeness.h"
#include "rendered_sounds.h"
#include "small_speaker.h"
#include "synthesis.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace chimewell::test {
namespace {

/// Pairs of different sounds are at least this many times as far apart as a sound and its variants.
constexpr double margin = 1.25;

/// Finished, waiting and error: every pair of them is among the farthest of all pairs.
const std::set<std::string> neverConfused{"Blow", "Funk", "Basso"};
constexpr std::size_t farthestShare = 4; // one in so many

struct Pair {
    double distance;
    std::string first;
    std::string second;
};

/// The same sound, as a listener would still call it.
SoundRecipe varied(SoundRecipe sound, double semitones, double stretch)
{
    sound.length *= stretch;
    for (auto& hit : sound.hits) {
        hit.semitones += semitones;
        hit.time *= stretch;
        hit.hold *= stretch;
    }
    for (auto& voice : sound.voices) {
        if (auto* const noise = std::get_if<Noise>(&voice.source)) noise->t60 *= stretch;
        if (auto* const tone = std::get_if<Tone>(&voice.source)) {
            tone->glideTime *= stretch;
            for (auto& partial : tone->partials)
                partial.t60 *= stretch;
        }
    }
    return sound;
}

struct Listening {
    const char* name;
    bool smallSpeaker;
};

std::ostream& operator<<(std::ostream& out, const Listening& listening)
{
    return out << listening.name;
}

class Likeness : public ::testing::TestWithParam<Listening> {
protected:
    static Picture seen(const Signal& signal)
    {
        return GetParam().smallSpeaker ? pictureOf(throughSmallSpeaker(signal)) : pictureOf(signal);
    }
};

TEST_P(Likeness, OfDifferentSoundsIsSmallerThanOfVariants)
{
    std::map<std::string, Picture> pictures;
    Pair farthestVariant{0, "", ""};
    for (const auto& sound : recipeBook().sounds) {
        ASSERT_TRUE(renderedSounds().contains(sound.name)) << sound.name;
        const auto& picture = pictures[sound.name] = seen(renderedSounds().at(sound.name));
        const auto compare = [&](const char* change, double semitones, double stretch) {
            const auto other = seen(render(varied(sound, semitones, stretch), recipeBook().reflections));
            const double far = distance(picture, other);
            if (far > farthestVariant.distance) farthestVariant = {far, sound.name, change};
        };
        compare("a semitone higher", 1, 1);
        compare("20 % slower", 0, 1.2);
    }

    std::vector<Pair> pairs;
    for (auto a = pictures.begin(); a != pictures.end(); ++a)
        for (auto b = std::next(a); b != pictures.end(); ++b)
            pairs.push_back({distance(a->second, b->second), a->first, b->first});
    std::ranges::sort(pairs, std::greater{}, &Pair::distance);

    std::cout << "farthest variant " << farthestVariant.distance << ' ' << farthestVariant.first << ' '
              << farthestVariant.second << "\nmedian " << pairs[pairs.size() / 2].distance << ", largest "
              << pairs.front().distance << ", smallest";
    for (auto pair = pairs.end() - 4; pair != pairs.end(); ++pair)
        std::cout << ' ' << pair->first << '/' << pair->second << ' ' << pair->distance;
    std::cout << '\n';

    EXPECT_GT(farthestVariant.distance, 0);
    EXPECT_GE(pairs.back().distance, margin * farthestVariant.distance)
        << pairs.back().first << " and " << pairs.back().second << " are too alike";
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        const auto& [far, first, second] = pairs[i];
        if (!neverConfused.contains(first) || !neverConfused.contains(second)) continue;
        std::cout << first << '/' << second << ' ' << far << ", rank " << i + 1 << " of " << pairs.size()
                  << '\n';
        EXPECT_LT(i, pairs.size() / farthestShare) << first << " and " << second << " can be confused";
    }
}

INSTANTIATE_TEST_SUITE_P(Through, Likeness,
                         ::testing::Values(Listening{"FullRange", false}, Listening{"SmallSpeaker", true}),
                         [](const auto& tested) { return tested.param.name; });

}
}
