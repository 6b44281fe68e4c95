// SPDX-License-Identifier: MIT
#include "platform/macos/system_symbols.h"

#include "fakes/images.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>

namespace chimewell::test {

TEST(SystemSymbolsTest, FillTheSquareFromTheTop)
{
    mac::symbols() = {{"square", {10, 10}}, {"wide", {20, 10}}, {"tall", {4, 8}}};
    const auto drawn = [](const char* name) {
        const auto mask = systemSymbol(name, 4);
        std::string rows;
        for (std::size_t pixel = 0; mask && pixel < mask->alpha.size(); ++pixel) {
            if (pixel % 4 == 0 && pixel != 0) rows += '\n';
            rows += mask->alpha[pixel] == 255 ? '#' : mask->alpha[pixel] == 128 ? '+' : '.';
        }
        return rows;
    };
    EXPECT_EQ(drawn("square"), "####\n####\n++++\n++++");
    EXPECT_EQ(drawn("wide"), "....\n####\n++++\n....");
    EXPECT_EQ(drawn("tall"), ".##.\n.##.\n.++.\n.++.");
    EXPECT_EQ(systemSymbol("square", 4).value_or(AlphaMask{}).size, 4);
    EXPECT_EQ(systemSymbol("none of that name", 4), std::nullopt);
    EXPECT_EQ(systemSymbol("square", 0), std::nullopt);
}

}
