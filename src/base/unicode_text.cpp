// SPDX-License-Identifier: MIT
#include "base/unicode_text.h"

#include "base/utf8.h"

#include <utf8proc.h>

#include <cstddef>
#include <utility>

namespace chimewell {

namespace {

constexpr std::size_t maxMarks = 30;

utf8proc_category_t category(char32_t c)
{
    return utf8proc_category(static_cast<utf8proc_int32_t>(c));
}

bool isWhiteSpace(char32_t c)
{
    const auto kind = category(c);
    return (c >= 0x09 && c <= 0x0D) || c == 0x85 || kind == UTF8PROC_CATEGORY_ZS ||
           kind == UTF8PROC_CATEGORY_ZL || kind == UTF8PROC_CATEGORY_ZP;
}

bool isLineBreak(char32_t c)
{
    return (c >= U'\n' && c <= U'\r') || c == 0x85 || c == 0x2028 || c == 0x2029;
}

bool isControl(char32_t c)
{
    return c < 0x20 || (c >= 0x7F && c <= 0x9F);
}

bool reordersText(char32_t c)
{
    return (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

bool isCombiningMark(char32_t c)
{
    constexpr char32_t first = 0x300;
    if (c < first) return false;
    const auto kind = category(c);
    return kind == UTF8PROC_CATEGORY_MN || kind == UTF8PROC_CATEGORY_ME;
}

enum class Lines { kept, joined };

std::string cleaned(std::string_view text, Lines lines)
{
    std::string result;
    char32_t previous = 0;
    std::size_t marks = 0; // on the present letter
    while (!text.empty()) {
        const DecodedUtf8 decoded = decodeUtf8(text);
        char32_t c = decoded.character;
        text.remove_prefix(decoded.size);
        if (reordersText(c)) continue;
        marks = isCombiningMark(c) ? marks + 1 : 0;
        if (marks > maxMarks) continue;
        const char32_t before = std::exchange(previous, c);
        if (isLineBreak(c)) {
            if (c == U'\n' && before == U'\r') continue;
            if (lines == Lines::joined && isLineBreak(before)) continue;
            c = lines == Lines::kept ? U'\n' : U' ';
        } else if (c == U'\t') {
            c = U' ';
        } else if (isControl(c)) {
            c = replacementCharacter;
        }
        const Utf8Character character(c);
        if (result.size() + character.bytes().size() > maxReadableBytes) break;
        result += character.bytes();
    }
    return result;
}

}

std::string_view firstCharacters(std::string_view text, std::size_t count)
{
    // A cluster has at least one byte.
    if (text.size() <= count) return text;

    utf8proc_int32_t previous = -1;
    utf8proc_int32_t state = 0;
    std::size_t clusters = 0;
    std::size_t position = 0;
    while (position < text.size()) {
        const DecodedUtf8 decoded = decodeUtf8(text.substr(position));
        const auto character = static_cast<utf8proc_int32_t>(decoded.character);
        if (previous < 0 || utf8proc_grapheme_break_stateful(previous, character, &state)) {
            if (clusters == count) break;
            ++clusters;
        }
        previous = character;
        position += decoded.size;
    }
    return text.substr(0, position);
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty()) {
        const DecodedUtf8 first = decodeUtf8(text);
        if (!isWhiteSpace(first.character)) break;
        text.remove_prefix(first.size);
    }
    while (!text.empty()) {
        std::size_t begin = text.size() - 1;
        while (begin > 0 && isUtf8Continuation(text[begin]))
            --begin;
        if (!isWhiteSpace(decodeUtf8(text.substr(begin)).character)) break;
        text = text.substr(0, begin);
    }
    return text;
}

std::string readableText(std::string_view text)
{
    return cleaned(text, Lines::kept);
}

std::string readableLine(std::string_view text)
{
    return cleaned(text, Lines::joined);
}

}
