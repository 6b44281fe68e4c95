// SPDX-License-Identifier: MIT
#include "rendered_sounds.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace chimewell::test {
namespace {

constexpr std::size_t wavHeader = 44;

std::string contents(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

Signal samplesOf(const std::string& file)
{
    Signal signal;
    for (std::size_t i = wavHeader; i + 1 < file.size(); i += 2) {
        const auto low = static_cast<std::uint8_t>(file[i]);
        const auto high = static_cast<std::uint8_t>(file[i + 1]);
        signal.push_back(static_cast<std::int16_t>(low | high << 8) / 32768.0);
    }
    return signal;
}

}

const RecipeBook& recipeBook()
{
    static const RecipeBook book = parseRecipes(contents(CHIMEWELL_SOUND_RECIPES)).value();
    return book;
}

std::map<std::string, std::string> renderedFiles()
{
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(CHIMEWELL_RENDERED_SOUNDS))
        files[entry.path().stem().string()] = contents(entry.path());
    return files;
}

const std::map<std::string, Signal>& renderedSounds()
{
    static const auto sounds = [] {
        std::map<std::string, Signal> read;
        for (const auto& [name, file] : renderedFiles())
            read[name] = samplesOf(file);
        return read;
    }();
    return sounds;
}

}
