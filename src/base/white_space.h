// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace chimewell {

/// `text` without white space and line breaks at both ends. White space is Unicode's general
/// categories Zs, Zl and Zp, U+0009 to U+000D and U+0085; U+FEFF is none.
std::string_view trimmed(std::string_view text);

}
