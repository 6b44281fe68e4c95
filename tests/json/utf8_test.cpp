// SPDX-License-Identifier: MIT
#include "base/utf8.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace chimewell::test {

namespace {

/// Decodes every character and judges it by the definition.
bool decodes(std::string_view bytes)
{
    for (std::size_t i = 0; i < bytes.size();) {
        const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
        const unsigned lead = byte(i);
        const std::size_t length = lead < 0x80   ? 1
                                   : lead < 0xC0 ? 0
                                   : lead < 0xE0 ? 2
                                   : lead < 0xF0 ? 3
                                   : lead < 0xF8 ? 4
                                                 : 0;
        if (length == 0 || i + length > bytes.size()) return false;
        char32_t character = length == 1 ? lead : lead & (0x7Fu >> length);
        for (std::size_t k = 1; k < length; ++k) {
            if (byte(i + k) >> 6 != 2) return false;
            character = character << 6 | (byte(i + k) & 0x3Fu);
        }
        constexpr std::array<char32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
        if (character < smallest[length] || character > 0x10FFFF) return false;
        if (character >= 0xD800 && character < 0xE000) return false;
        i += length;
    }
    return true;
}

TEST(Utf8, JudgesEveryCombinationOfTheBytesThatMatter)
{
    constexpr std::string_view bytes(
        "\0\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xC1\xC2\xDF\xE0\xE1\xEC\xED\xEE\xEF\xF0\xF1\xF3\xF4\xF5\xFF", 24);
    std::string text(4, '\0');
    std::size_t wrong = 0;
    for (const char a : bytes)
        for (const char b : bytes)
            for (const char c : bytes)
                for (const char d : bytes) {
                    text = {a, b, c, d};
                    wrong += isValidUtf8(text) != decodes(text) ? 1 : 0;
                }
    EXPECT_EQ(wrong, 0u);
}

TEST(Utf8, FindsAWrongByteBehindAnyLengthOfASCII)
{
    for (std::size_t length = 0; length < 100; ++length) {
        const std::string ascii(length, 'a');
        const auto between = [&](std::string_view bytes) {
            return std::string(ascii).append(bytes).append(ascii);
        };
        EXPECT_TRUE(isValidUtf8(between("é"))) << length;
        EXPECT_FALSE(isValidUtf8(between("\x80"))) << length;
        EXPECT_FALSE(isValidUtf8(between("\xF0\x9F\x98"))) << length;
    }
}

TEST(Utf8, EncodesEveryScalarValue)
{
    std::size_t wrong = 0;
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        if (character >= 0xD800 && character < 0xE000) continue;
        const Utf8Character encoded(character);
        const bool right =
            decodes(encoded.bytes()) && utf8Length(encoded.bytes().front()) == encoded.bytes().size();
        wrong += right ? 0 : 1;
    }
    EXPECT_EQ(wrong, 0u);
    EXPECT_EQ(Utf8Character(U'é').bytes(), "é");
    EXPECT_EQ(Utf8Character(U'€').bytes(), "€");
    EXPECT_EQ(Utf8Character(U'😀').bytes(), "😀");
}

}

}
