// SPDX-License-Identifier: MIT
#include "base/utf8.h"

#include "base/byte_word.h"

namespace chimewell {

namespace {

/// Length of the valid character of two bytes or more that starts at `at`; 0 if there is none.
std::size_t multibyteLength(const char* at, const char* end)
{
    const std::size_t length = utf8Length(*at);
    if (length == 1 || static_cast<std::size_t>(end - at) < length) return 0;
    for (std::size_t i = 1; i < length; ++i)
        if (!isUtf8Continuation(at[i])) return 0;

    // The second byte alone tells overlong forms, surrogates and what lies beyond U+10FFFF.
    const auto second = static_cast<unsigned char>(at[1]);
    switch (static_cast<unsigned char>(*at)) {
    case 0xE0:
        return second >= 0xA0 ? length : 0;
    case 0xED:
        return second < 0xA0 ? length : 0;
    case 0xF0:
        return second >= 0x90 ? length : 0;
    case 0xF4:
        return second < 0x90 ? length : 0;
    default:
        return length;
    }
}

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

bool isValidUtf8(std::string_view bytes)
{
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    while (at != end) {
        if (static_cast<unsigned char>(*at) < 0x80) {
            at = skipASCII(at, end);
            continue;
        }
        const std::size_t length = multibyteLength(at, end);
        if (length == 0) return false;
        at += length;
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
