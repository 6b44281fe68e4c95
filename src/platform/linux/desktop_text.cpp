// SPDX-License-Identifier: MIT
#include "platform/linux/desktop_text.h"

#include <array>
#include <utility>

namespace chimewell {
namespace {

constexpr char32_t replacement = 0xFFFD;

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
bool append(std::string& result, char32_t value)
{
    std::array<char, 4> bytes{};
    unsigned length = 0;
    const auto add = [&](char32_t byte) { bytes[length++] = static_cast<char>(byte); };
    const auto addTail = [&](unsigned shift) { add(0x80 | (value >> shift & 0x3F)); };
    if (value < 0x80) {
        add(value);
    } else if (value < 0x800) {
        add(0xC0 | value >> 6);
        addTail(0);
    } else if (value < 0x10000) {
        add(0xE0 | value >> 12);
        addTail(6);
        addTail(0);
    } else {
        add(0xF0 | value >> 18);
        addTail(12);
        addTail(6);
        addTail(0);
    }
    if (result.size() + length > maxDesktopTextBytes) return false;
    result.append(bytes.data(), length);
    return true;
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

enum class Lines { kept, joined };

std::string cleaned(std::string_view text, Lines lines)
{
    std::string result;
    char32_t previous = 0;
    while (!text.empty()) {
        char32_t c = takeCodePoint(text);
        if (reordersText(c)) continue;
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
        if (!append(result, c)) break;
    }
    return result;
}

}

std::string desktopBody(std::string_view text)
{
    return cleaned(text, Lines::kept);
}

std::string desktopTitle(std::string_view text)
{
    return cleaned(text, Lines::joined);
}

std::string escapedMarkup(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        if (c == '&')
            result += "&amp;";
        else if (c == '<')
            result += "&lt;";
        else if (c == '>')
            result += "&gt;";
        else
            result += c;
    }
    return result;
}

}
