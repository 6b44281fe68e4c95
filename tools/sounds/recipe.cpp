// SPDX-License-Identifier: MIT
#include "recipe.h"

#include "synthesis.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <initializer_list>
#include <span>
#include <utility>

namespace chimewell {
namespace {

constexpr int longestSound = 10'000; // ms
constexpr int largestSeed = 0x7fffffff;

using Words = std::span<const std::string_view>;
using Outcome = std::expected<void, std::string>;

Outcome refuse(std::string why)
{
    return std::unexpected(std::move(why));
}

std::string quoted(std::string_view word)
{
    return "'" + std::string(word) + "'";
}

std::vector<std::string_view> wordsOf(std::string_view line)
{
    constexpr std::string_view blanks = " \t\r";
    line = line.substr(0, line.find('#'));
    std::vector<std::string_view> words;
    for (;;) {
        line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
        if (line.empty()) return words;
        words.push_back(line.substr(0, line.find_first_of(blanks)));
        line.remove_prefix(words.back().size());
    }
}

Outcome readNumber(std::string_view word, double& number)
{
    // strtod, because not every standard library has from_chars for doubles; no locale is ever set here.
    const std::string text(word);
    char* end = nullptr;
    number = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || !std::isfinite(number))
        return refuse(quoted(word) + " is not a number");
    return {};
}

/// Bare numbers in a fixed order, of which the last ones may be left out.
Outcome readColumns(Words words, std::initializer_list<double*> columns, std::size_t required)
{
    if (words.size() < required || words.size() > columns.size())
        return refuse(std::to_string(words.size()) + " numbers given, wanted " + std::to_string(required) +
                      " to " + std::to_string(columns.size()));
    auto* const* column = columns.begin();
    for (const auto word : words)
        if (auto read = readNumber(word, **column++); !read) return read;
    return {};
}

struct Key {
    std::string_view name;
    double* value;
    bool required = false;
    bool positive = false;
};

/// Words of the form key=number, in any order.
Outcome readKeys(Words words, std::initializer_list<Key> keys)
{
    std::vector<std::string_view> given;
    for (const auto word : words) {
        const auto equals = word.find('=');
        const auto name = word.substr(0, equals);
        const auto* const key = std::ranges::find(keys, name, &Key::name);
        if (equals == std::string_view::npos || key == keys.end())
            return refuse("unknown word " + quoted(word));
        if (auto read = readNumber(word.substr(equals + 1), *key->value); !read) return read;
        if (key->positive && *key->value <= 0) return refuse(std::string(name) + " must be above 0");
        given.push_back(name);
    }
    for (const auto& key : keys)
        if (key.required && std::ranges::find(given, key.name) == given.end())
            return refuse(std::string(key.name) + " is missing");
    return {};
}

/// What can only be judged once all statements of the sound are known.
Outcome check(const SoundRecipe& sound)
{
    if (sound.hits.empty()) return refuse(sound.name + " has no hit");
    if (sound.voices.empty()) return refuse(sound.name + " has no voice");
    double highest = 0;
    for (const auto& hit : sound.hits) {
        if (hit.time < 0 || hit.time >= sound.length)
            return refuse(sound.name + " is hit outside its length");
        highest = std::max(highest, frequencyRatio(hit.semitones));
    }
    for (const auto& voice : sound.voices) {
        const auto* const tone = std::get_if<Tone>(&voice.source);
        if (tone != nullptr && tone->partials.empty())
            return refuse(sound.name + " has a tone without a part");
        if (!voice.filter) continue;
        const double centre =
            voice.filter->frequency * highest * std::max(1.0, frequencyRatio(voice.filter->sweep));
        if (centre >= sampleRate / 2.0)
            return refuse(sound.name + " has a filter above half the sample rate");
    }
    return {};
}

class Reader {
public:
    /// Takes in one line that is not empty.
    Outcome statement(Words words, int line)
    {
        const auto verb = words.front();
        const auto rest = words.subspan(1);
        if (verb == "reflection") return reflection(rest);
        if (verb == "sound") return sound(rest, line);
        if (verb != "idea" && verb != "hit" && verb != "tone" && verb != "noise" && verb != "part" &&
            verb != "filter")
            return refuse("unknown statement " + quoted(verb));
        if (book.sounds.empty()) return refuse(quoted(verb) + " before the first sound");
        if (verb == "idea") return idea(rest);
        if (verb == "hit") return hit(rest);
        if (verb == "tone") return tone(rest);
        if (verb == "noise") return noise(rest);
        return verb == "part" ? part(rest) : filter(rest);
    }

    RecipeBook book;
    int soundLine = 0; ///< Where the latest sound begins.

private:
    SoundRecipe& current() { return book.sounds.back(); }

    Outcome reflection(Words words)
    {
        if (!book.sounds.empty()) return refuse("reflections come before the first sound");
        auto& added = book.reflections.emplace_back();
        if (auto read = readColumns(words, {&added.delay, &added.level}, 2); !read) return read;
        return added.delay >= 0 ? Outcome{} : refuse("a reflection cannot come early");
    }

    Outcome sound(Words words, int line)
    {
        constexpr std::string_view allowed = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
        if (words.empty() || words[0].find_first_not_of(allowed) != std::string_view::npos)
            return refuse("a sound needs a name of letters and digits");
        if (std::ranges::find(book.sounds, words[0], &SoundRecipe::name) != book.sounds.end())
            return refuse("second sound called " + std::string(words[0]));
        soundLine = line;
        auto& added = book.sounds.emplace_back();
        added.name = words[0];
        auto read = readKeys(words.subspan(1), {{"length", &added.length, true, true},
                                                {"gain", &added.gain},
                                                {"room", &added.room},
                                                {"fade", &added.fade}});
        if (read && added.length > longestSound)
            return refuse("longer than " + std::to_string(longestSound) + " ms");
        return read;
    }

    Outcome idea(Words words)
    {
        for (const auto word : words) {
            if (!current().idea.empty()) current().idea += ' ';
            current().idea += word;
        }
        return {};
    }

    Outcome hit(Words words)
    {
        auto& added = current().hits.emplace_back();
        return readColumns(words, {&added.time, &added.semitones, &added.level, &added.hold}, 3);
    }

    Outcome tone(Words words)
    {
        auto& voice = current().voices.emplace_back();
        auto& tone = voice.source.emplace<Tone>();
        return readKeys(words, {{"f", &tone.frequency, true, true},
                                {"attack", &voice.attack, true},
                                {"level", &voice.level},
                                {"glide", &tone.glide},
                                {"glidetime", &tone.glideTime, false, true},
                                {"vibrate", &tone.vibratoRate},
                                {"vibdepth", &tone.vibratoDepth},
                                {"fmratio", &tone.fmRatio},
                                {"fmindex", &tone.fmIndex},
                                {"fmt60", &tone.fmT60, false, true},
                                {"amrate", &voice.tremoloRate},
                                {"amdepth", &voice.tremoloDepth},
                                {"amshape", &voice.tremoloShape, false, true}});
    }

    Outcome noise(Words words)
    {
        auto& voice = current().voices.emplace_back();
        auto& noise = voice.source.emplace<Noise>();
        double seed = 0;
        auto read = readKeys(words, {{"attack", &voice.attack, true},
                                     {"t60", &noise.t60, true, true},
                                     {"seed", &seed, true, true},
                                     {"level", &voice.level},
                                     {"amrate", &voice.tremoloRate},
                                     {"amdepth", &voice.tremoloDepth},
                                     {"amshape", &voice.tremoloShape, false, true}});
        if (!read) return read;
        if (seed != std::floor(seed) || seed > largestSeed)
            return refuse("seed must be a whole number up to " + std::to_string(largestSeed));
        noise.seed = static_cast<std::uint32_t>(seed);
        return {};
    }

    Outcome part(Words words)
    {
        auto* const tone =
            current().voices.empty() ? nullptr : std::get_if<Tone>(&current().voices.back().source);
        if (tone == nullptr) return refuse("a part belongs below a tone");
        auto& added = tone->partials.emplace_back();
        auto read = readColumns(words, {&added.ratio, &added.level, &added.t60, &added.phase}, 3);
        return read && added.t60 <= 0 ? refuse("t60 must be above 0") : read;
    }

    Outcome filter(Words words)
    {
        if (current().voices.empty()) return refuse("a filter belongs below a voice");
        auto& filter = current().voices.back().filter.emplace();
        std::vector<std::string_view> numbers(words.begin(), words.end());
        const auto kind = std::ranges::find_if(numbers, [](auto word) { return word.starts_with("kind="); });
        if (kind == numbers.end()) return refuse("kind is missing");
        if (*kind == "kind=lp")
            filter.kind = FilterKind::lowPass;
        else if (*kind == "kind=bp")
            filter.kind = FilterKind::bandPass;
        else if (*kind == "kind=hp")
            filter.kind = FilterKind::highPass;
        else
            return refuse("unknown word " + quoted(*kind));
        numbers.erase(kind);
        return readKeys(numbers, {{"f", &filter.frequency, true, true},
                                  {"q", &filter.q, false, true},
                                  {"sweep", &filter.sweep},
                                  {"sweeptime", &filter.sweepTime, false, true}});
    }
};

}

std::expected<RecipeBook, RecipeError> parseRecipes(std::string_view text)
{
    Reader reader;
    const auto finishSound = [&reader] {
        return reader.book.sounds.empty() ? Outcome{} : check(reader.book.sounds.back());
    };
    for (int line = 1; !text.empty(); ++line) {
        const auto words = wordsOf(text.substr(0, text.find('\n')));
        text.remove_prefix(std::min(text.find('\n'), text.size() - 1) + 1);
        if (words.empty()) continue;
        if (words.front() == "sound")
            if (auto whole = finishSound(); !whole)
                return std::unexpected(RecipeError{reader.soundLine, whole.error()});
        if (auto read = reader.statement(words, line); !read)
            return std::unexpected(RecipeError{line, read.error()});
    }
    if (auto whole = finishSound(); !whole)
        return std::unexpected(RecipeError{reader.soundLine, whole.error()});
    return std::move(reader.book);
}

}
