// SPDX-License-Identifier: MIT
#include "platform/linux/speech/ssip_protocol.h"

#include <algorithm>

namespace chimewell {
namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Removes from `text` the part before the first `separator`, and the separator. All of it when there is
/// none.
std::string_view takeUntil(std::string_view& text, char separator)
{
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

}

std::optional<SsipLine> parseSsipLine(std::string_view line)
{
    if (line.size() < 4 || line[0] == '0' || !std::all_of(line.begin(), line.begin() + 3, isDigit))
        return std::nullopt;
    if (line[3] != '-' && line[3] != ' ') return std::nullopt;
    const int code = (line[0] - '0') * 100 + (line[1] - '0') * 10 + (line[2] - '0');
    return SsipLine{.code = code, .isLast = line[3] == ' ', .text = line.substr(4)};
}

std::optional<Voice> parseVoiceRow(std::string_view row)
{
    const std::string_view name = takeUntil(row, '\t');
    const std::string_view language = takeUntil(row, '\t');
    const std::string_view variant = takeUntil(row, '\t');
    if (name.empty() || language.empty()) return std::nullopt;
    if (!variant.empty() && name.ends_with("+" + std::string(variant))) return std::nullopt;
    Voice voice{
        .identifier = std::string(name), .name = std::string(name), .language = std::string(language)};
    std::ranges::replace(voice.language, '_', '-'); // as some engines write it
    return voice;
}

std::string ssipTextBlock(std::string_view text)
{
    std::string block;
    block.reserve(text.size() + 16);
    while (!text.empty()) {
        const std::string_view line = takeUntil(text, '\n');
        if (line.starts_with('.')) block += '.';
        block += line;
        block += "\r\n";
    }
    return block += ".\r\n";
}

}
