// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace chimewell {

/// Whether `bytes` is UTF-8 as Unicode defines it: no overlong form, no surrogate, nothing above U+10FFFF,
/// no character cut short.
bool isValidUtf8(std::string_view bytes);

/// At most `count` bytes from the start of `text`, cut at a character's end where it is UTF-8.
std::string_view firstBytes(std::string_view text, std::size_t count);

inline constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// How many bytes at the start of `text` are a byte-order mark: all of one or none.
constexpr std::size_t byteOrderMarkSize(std::string_view text)
{
    return text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
}

inline constexpr char32_t replacementCharacter = 0xFFFD;

/// The beginning of a text, decoded.
struct DecodedUtf8 {
    char32_t character = replacementCharacter;
    std::size_t size = 1; ///< Bytes; where it is no character, those that could have begun one.
    bool isValid = false;
};

/// `text` is not empty.
DecodedUtf8 decodeUtf8(std::string_view text);

/// How many bytes the character that starts with `lead` has; 1 for a byte that starts none.
constexpr std::size_t utf8Length(char lead)
{
    const auto byte = static_cast<unsigned char>(lead);
    if (byte < 0xC2 || byte > 0xF4) return 1;
    return byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

constexpr bool isUtf8Continuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// One character in UTF-8.
class Utf8Character {
public:
    /// `character` is a Unicode scalar value.
    constexpr explicit Utf8Character(char32_t character)
    {
        if (character < 0x80) {
            add(character);
            return;
        }
        if (character < 0x800) {
            add(0xC0 | character >> 6);
        } else {
            if (character < 0x10000) {
                add(0xE0 | character >> 12);
            } else {
                add(0xF0 | character >> 18);
                add(0x80 | (character >> 12 & 0x3F));
            }
            add(0x80 | (character >> 6 & 0x3F));
        }
        add(0x80 | (character & 0x3F));
    }

    constexpr std::string_view bytes() const { return {bytes_.data(), size_}; }

private:
    constexpr void add(char32_t byte) { bytes_[size_++] = static_cast<char>(byte); }

    std::array<char, 4> bytes_{};
    std::size_t size_ = 0;
};

}
