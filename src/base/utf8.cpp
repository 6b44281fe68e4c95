// SPDX-License-Identifier: MIT
#include "base/utf8.h"

#include "base/byte_word.h"

namespace chimewell {

namespace {

const char* skipASCII(const char* at, const char* end)
{
    while (end - at >= 32) {
        const ByteWord all = loadWord(at) | loadWord(at + 8) | loadWord(at + 16) | loadWord(at + 24);
        if ((all & topBits) != 0) break;
        at += 32;
    }
    while (end - at >= 8) {
        const ByteWord marks = loadWord(at) & topBits;
        if (marks != 0) return at + firstByteSet(marks);
        at += 8;
    }
    while (at != end && static_cast<unsigned char>(*at) < 0x80)
        ++at;
    return at;
}

}

DecodedUtf8 decodeUtf8(std::string_view text)
{
    const auto byteAt = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byteAt(0);
    if (lead < 0x80) return {.character = lead, .isValid = true};
    const std::size_t length = utf8Length(text[0]);
    if (length == 1) return {};

    // Overlong forms, surrogates and what lies above U+10FFFF show in the second byte (Unicode, table 3-7).
    unsigned char lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    unsigned char highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    char32_t character = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if (i == text.size() || byteAt(i) < lowest || byteAt(i) > highest) return {.size = i};
        character = character << 6 | (byteAt(i) & 0x3FU);
        lowest = 0x80;
        highest = 0xBF;
    }
    return {.character = character, .size = length, .isValid = true};
}

bool isValidUtf8(std::string_view bytes)
{
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    while (at != end) {
        if (static_cast<unsigned char>(*at) < 0x80) {
            at = skipASCII(at, end);
            continue;
        }
        const DecodedUtf8 decoded = decodeUtf8({at, static_cast<std::size_t>(end - at)});
        if (!decoded.isValid) return false;
        at += decoded.size;
    }
    return true;
}

std::string_view firstBytes(std::string_view text, std::size_t count)
{
    if (text.size() <= count) return text;
    // A character has three such bytes at most; more of them are no UTF-8.
    for (int i = 0; i < 3 && count > 0 && isUtf8Continuation(text[count]); ++i)
        --count;
    return text.substr(0, count);
}

}
