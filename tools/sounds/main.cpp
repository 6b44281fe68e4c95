// SPDX-License-Identifier: MIT
// Renders every sound of a recipe file into a folder. Runs at build time.
#include "recipe.h"
#include "synthesis.h"
#include "wav.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <system_error>

namespace {

int fail(const std::string& why)
{
    std::cerr << why << '\n';
    return 1;
}

}

int main(int argc, char** argv)
{
    using namespace chimewell;
    if (argc != 3) return fail("usage: chimewell-sounds RECIPES OUTDIR");
    const std::string recipes = argv[1];
    const std::filesystem::path folder = argv[2];

    std::ifstream in(recipes, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    if (!in) return fail("cannot read " + recipes);
    const auto book = parseRecipes(text);
    if (!book) return fail(recipes + ":" + std::to_string(book.error().line) + ": " + book.error().text);

    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    for (const auto& sound : book->sounds) {
        const auto path = folder / (sound.name + ".wav");
        std::ofstream out(path, std::ios::binary);
        out << encodeWav(toPcm(render(sound, book->reflections)), sampleRate) << std::flush;
        if (!out) return fail("cannot write " + path.string());
    }
    return 0;
}
