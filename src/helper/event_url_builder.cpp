// SPDX-License-Identifier: MIT
#include "helper/event_url_builder.h"

#include "base/utf8.h"
#include "values/event_url.h"

#include <utility>

namespace chimewell {

namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

bool isUnreserved(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '.' || c == '_' || c == '~';
}

void appendEncoded(std::string& url, std::string_view bytes)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    for (const char c : bytes) {
        if (isUnreserved(c)) {
            url += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        url += '%';
        url += digits[byte >> 4];
        url += digits[byte & 0xF];
    }
}

}

EventUrlBuilder::EventUrlBuilder(CanonicalEvent event, std::string_view provider)
    : text_("chimewell://event?type=")
{
    text_.append(rawName(event)).append("&provider=").append(provider);
}

void EventUrlBuilder::add(std::string_view key, std::string_view value)
{
    if (value.empty()) return;
    text_.append("&").append(key).append("=");
    value = firstBytes(value, maxValueBytes);
    while (!value.empty()) {
        const std::string_view character = value.substr(0, utf8Length(value.front()));
        const bool isValid = isValidUtf8(character);
        if (value.front() != '\0') appendEncoded(text_, isValid ? character : replacementCharacter);
        value.remove_prefix(isValid ? character.size() : 1);
    }
}

}
