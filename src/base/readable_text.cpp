// SPDX-License-Identifier: MIT
#include "base/readable_text.h"

#include "base/utf8.h"

#include <utf8proc.h>

#include <cstddef>
#include <utility>

namespace chimewell {

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr std::size_t maxMarks = 30;

struct Lead {
    unsigned length; ///< Of the whole sequence; 0 for a byte that starts none.
    unsigned char lowestSecond;
    unsigned char highestSecond;
};

/// Table 3-7 of the Unicode standard: overlong forms, surrogates and what lies above U+10FFFF show in the
/// second byte.
Lead leadOf(unsigned char byte)
{
    if (byte < 0x80) return {.length = 1, .lowestSecond = 0, .highestSecond = 0};
    if (byte < 0xC2 || byte > 0xF4) return {.length = 0, .lowestSecond = 0, .highestSecond = 0};
    Lead lead{.length = 2, .lowestSecond = 0x80, .highestSecond = 0xBF};
    if (byte >= 0xE0) lead.length = 3;
    if (byte >= 0xF0) lead.length = 4;
    if (byte == 0xE0) lead.lowestSecond = 0xA0;
    if (byte == 0xED) lead.highestSecond = 0x9F;
    if (byte == 0xF0) lead.lowestSecond = 0x90;
    if (byte == 0xF4) lead.highestSecond = 0x8F;
    return lead;
}

/// Takes one code point off the front; one U+FFFD for each broken-off beginning of a sequence.
char32_t takeCodePoint(std::string_view& text)
{
    const auto first = static_cast<unsigned char>(text.front());
    const Lead lead = leadOf(first);
    text.remove_prefix(1);
    if (lead.length == 0) return replacement;
    if (lead.length == 1) return first;
    char32_t value = first & (0x7FU >> lead.length);
    for (unsigned i = 1; i < lead.length; ++i) {
        if (text.empty()) return replacement;
        const auto next = static_cast<unsigned char>(text.front());
        const unsigned char lowest = i == 1 ? lead.lowestSecond : 0x80;
        const unsigned char highest = i == 1 ? lead.highestSecond : 0xBF;
        if (next < lowest || next > highest) return replacement;
        value = value << 6 | (next & 0x3FU);
        text.remove_prefix(1);
    }
    return value;
}

/// Appends nothing and answers false when the result would become too long.
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
    const utf8proc_category_t category = utf8proc_category(static_cast<utf8proc_int32_t>(c));
    return category == UTF8PROC_CATEGORY_MN || category == UTF8PROC_CATEGORY_ME;
}

enum class Lines { kept, joined };

std::string cleaned(std::string_view text, Lines lines)
{
    std::string result;
    char32_t previous = 0;
    std::size_t marks = 0; // on the present letter
    while (!text.empty()) {
        char32_t c = takeCodePoint(text);
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
            c = replacement;
        }
        const Utf8Character character(c);
        if (result.size() + character.bytes().size() > maxReadableBytes) break;
        result += character.bytes();
    }
    return result;
}

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
