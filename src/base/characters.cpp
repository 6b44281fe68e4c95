// SPDX-License-Identifier: MIT
#include "base/characters.h"

#include <utf8proc.h>

namespace chimewell {

std::string_view firstCharacters(std::string_view text, std::size_t count)
{
    // A cluster has at least one byte.
    if (text.size() <= count) return text;

    utf8proc_int32_t previous = -1;
    utf8proc_int32_t state = 0;
    std::size_t clusters = 0;
    std::size_t position = 0;
    while (position < text.size()) {
        utf8proc_int32_t character = -1;
        const auto length =
            utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()) + position,
                             static_cast<utf8proc_ssize_t>(text.size() - position), &character);
        if (length <= 0) break;
        if (previous < 0 || utf8proc_grapheme_break_stateful(previous, character, &state)) {
            if (clusters == count) break;
            ++clusters;
        }
        previous = character;
        position += static_cast<std::size_t>(length);
    }
    return text.substr(0, position);
}

}
