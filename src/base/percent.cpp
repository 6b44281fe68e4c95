// SPDX-License-Identifier: MIT
#include "base/percent.h"

#include <algorithm>
#include <cstddef>

namespace chimewell {

namespace {

bool isUnreserved(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '.' || c == '_' || c == '~';
}

bool isEscape(std::string_view text)
{
    return text.size() >= 3 && text[0] == '%' && hexDigitValue(text[1]) >= 0 && hexDigitValue(text[2]) >= 0;
}

}

void appendHexPair(std::string& text, char byte)
{
    constexpr char digits[] = "0123456789ABCDEF";
    const auto value = static_cast<unsigned char>(byte);
    text += digits[value >> 4];
    text += digits[value & 0xF];
}

void appendPercentEncoded(std::string& text, std::string_view bytes, std::string_view kept)
{
    const auto isKept = [kept](char c) { return isUnreserved(c) || kept.contains(c); };
    while (!bytes.empty()) {
        const auto* const escaped = std::ranges::find_if_not(bytes, isKept);
        text.append(bytes.begin(), escaped);
        bytes.remove_prefix(static_cast<std::size_t>(escaped - bytes.begin()));
        if (bytes.empty()) break;
        text += '%';
        appendHexPair(text, bytes.front());
        bytes.remove_prefix(1);
    }
}

std::string percentDecoded(std::string_view text)
{
    std::string decoded;
    decoded.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isEscape(text.substr(i))) {
            decoded += static_cast<char>(hexDigitValue(text[i + 1]) << 4 | hexDigitValue(text[i + 2]));
            i += 2;
        } else {
            decoded += text[i];
        }
    }
    return decoded;
}

std::optional<std::string> strictlyPercentDecoded(std::string_view text)
{
    for (auto at = text.find('%'); at != std::string_view::npos; at = text.find('%', at + 1))
        if (!isEscape(text.substr(at))) return std::nullopt;
    return percentDecoded(text);
}

}
