// SPDX-License-Identifier: MIT
#include "base/white_space.h"

#include "base/utf8.h"

#include <utf8proc.h>

#include <cstddef>

namespace chimewell {

namespace {

bool isWhiteSpace(utf8proc_int32_t character)
{
    if ((character >= 0x09 && character <= 0x0D) || character == 0x85) return true;
    const utf8proc_category_t category = utf8proc_category(character);
    return category == UTF8PROC_CATEGORY_ZS || category == UTF8PROC_CATEGORY_ZL ||
           category == UTF8PROC_CATEGORY_ZP;
}

/// The character that `text` begins with and its length in bytes; -1 and 1 where it is not UTF-8.
struct Character {
    utf8proc_int32_t value = -1;
    std::size_t length = 1;
};

Character firstCharacter(std::string_view text)
{
    Character character;
    const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                         static_cast<utf8proc_ssize_t>(text.size()), &character.value);
    if (length > 0) character.length = static_cast<std::size_t>(length);
    return character;
}

}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty()) {
        const Character first = firstCharacter(text);
        if (!isWhiteSpace(first.value)) break;
        text.remove_prefix(first.length);
    }
    while (!text.empty()) {
        std::size_t begin = text.size() - 1;
        while (begin > 0 && isUtf8Continuation(text[begin]))
            --begin;
        if (!isWhiteSpace(firstCharacter(text.substr(begin)).value)) break;
        text.remove_suffix(text.size() - begin);
    }
    return text;
}

}
