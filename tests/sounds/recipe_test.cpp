// SPDX-License-Identifier: MIT
#include "recipe.h"

#include <gtest/gtest.h>

#include <string>
#include <variant>

namespace chimewell {
namespace {

TEST(Recipes, AreReadWithTheirDefaults)
{
    const auto book = parseRecipes("reflection 11.3 -13 # a wall\r\n"
                                   "\n"
                                   "sound Both length=500 gain=-3\n"
                                   "idea  Two   words # and a comment\n"
                                   "hit 100 -5 2\n"
                                   "tone attack=4 f=440\n"
                                   "part 2 -6 300 0.25\n"
                                   "noise attack=5 t60=60 seed=7 amrate=20\n"
                                   "filter f=800 kind=bp sweep=12\n"
                                   "sound Last length=200 room=-8\n"
                                   "hit 0 0 0 30\n"
                                   "noise attack=5 t60=60 seed=8");
    ASSERT_TRUE(book) << book.error().line << ": " << book.error().text;
    ASSERT_EQ(book->reflections.size(), 1U);
    EXPECT_EQ(book->reflections[0].level, -13);
    ASSERT_EQ(book->sounds.size(), 2U);
    EXPECT_EQ(book->sounds[1].name, "Last");
    EXPECT_EQ(book->sounds[1].hits.at(0).hold, 30);

    const auto& sound = book->sounds[0];
    EXPECT_EQ(sound.idea, "Two words");
    EXPECT_EQ(sound.gain, -3);
    EXPECT_EQ(sound.room, -100);
    EXPECT_EQ(sound.fade, 40);
    EXPECT_EQ(sound.hits.at(0).semitones, -5);
    EXPECT_EQ(sound.hits.at(0).hold, 0);
    ASSERT_EQ(sound.voices.size(), 2U);
    EXPECT_FALSE(sound.voices[0].filter);
    const auto& tone = std::get<Tone>(sound.voices[0].source);
    EXPECT_EQ(tone.frequency, 440);
    EXPECT_EQ(tone.partials.at(0).phase, 0.25);
    EXPECT_EQ(std::get<Noise>(sound.voices[1].source).seed, 7U);
    EXPECT_EQ(sound.voices[1].tremoloRate, 20);
    ASSERT_TRUE(sound.voices[1].filter.has_value());
    const auto filter = sound.voices[1].filter.value_or(Filter{});
    EXPECT_EQ(filter.kind, FilterKind::bandPass);
    EXPECT_EQ(filter.sweep, 12);
    EXPECT_EQ(filter.q, 0.7071);
}

TEST(Recipes, AreRefusedWithTheLineAndTheReason)
{
    const std::string sound = "sound A length=100\n";
    const std::string struck = sound + "hit 0 0 0\n";
    const std::string voiced = struck + "tone f=440 attack=4\npart 1 0 100\n";
    const struct {
        std::string text;
        int line;
        std::string reason;
    } cases[] = {
        {"chime A", 1, "unknown statement 'chime'"},
        {"\n# nothing\nhit 0 0 0", 3, "'hit' before the first sound"},
        {"reflection 10", 1, "1 numbers given, wanted 2 to 2"},
        {"reflection -1 0", 1, "a reflection cannot come early"},
        {voiced + "reflection 10 -3", 5, "reflections come before the first sound"},
        {"sound", 1, "a sound needs a name of letters and digits"},
        {"sound ../A length=100", 1, "a sound needs a name of letters and digits"},
        {"sound A", 1, "length is missing"},
        {"sound A length=0", 1, "length must be above 0"},
        {"sound A length=1e9", 1, "longer than 10000 ms"},
        {"sound A length=1 0", 1, "unknown word '0'"},
        {"sound A length=", 1, "'' is not a number"},
        {"sound A length=1x", 1, "'1x' is not a number"},
        {"sound A length=nan", 1, "'nan' is not a number"},
        {voiced + sound, 5, "second sound called A"},
        {sound + "hit 0 0", 2, "2 numbers given, wanted 3 to 4"},
        {sound + "hit 0 0 0 0 0", 2, "5 numbers given, wanted 3 to 4"},
        {struck + "tone attack=4", 3, "f is missing"},
        {struck + "tone f=440 attack=4 tune=1", 3, "unknown word 'tune=1'"},
        {struck + "noise attack=4 t60=50 seed=0", 3, "seed must be above 0"},
        {struck + "noise attack=4 t60=50 seed=1.5", 3, "seed must be a whole number up to 2147483647"},
        {struck + "part 1 0 100", 3, "a part belongs below a tone"},
        {struck + "noise attack=4 t60=50 seed=1\npart 1 0 100", 4, "a part belongs below a tone"},
        {voiced + "part 1 0 0", 5, "t60 must be above 0"},
        {struck + "filter kind=lp f=500", 3, "a filter belongs below a voice"},
        {voiced + "filter f=500", 5, "kind is missing"},
        {voiced + "filter kind=xp f=500", 5, "unknown word 'kind=xp'"},
        {voiced + "filter kind=lp f=500 q=0", 5, "q must be above 0"},
        // Faults of a whole sound, found where the next one begins or the file ends.
        {sound, 1, "A has no hit"},
        {struck + "sound B length=100", 1, "A has no voice"},
        {struck + "tone f=440 attack=4", 1, "A has a tone without a part"},
        {voiced + "hit 100 0 0", 1, "A is hit outside its length"},
        {voiced + "filter kind=lp f=9000 sweep=18", 1, "A has a filter above half the sample rate"},
        {voiced + "filter kind=lp f=9000\nhit 0 18 0", 1, "A has a filter above half the sample rate"},
    };
    for (const auto& [text, line, reason] : cases) {
        const auto book = parseRecipes(text);
        ASSERT_FALSE(book) << text;
        EXPECT_EQ(book.error().line, line) << text;
        EXPECT_EQ(book.error().text, reason) << text;
    }
}

}
}
