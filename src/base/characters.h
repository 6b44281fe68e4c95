// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace chimewell {

/// The first `count` user-perceived characters (extended grapheme clusters, Unicode Standard
/// Annex 29) of valid UTF-8. One of them may be any number of bytes; the time is linear in the text.
std::string_view firstCharacters(std::string_view text, std::size_t count);

}
