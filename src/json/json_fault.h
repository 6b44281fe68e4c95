// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace chimewell {

/// Why a text is no JSON of ours, in the order in which the reader can meet them.
enum class JSONFault : std::uint8_t {
    none,
    unexpectedEnd,
    invalidLiteral,
    keyExpected,
    colonExpected,
    unterminatedObject,
    objectSeparatorExpected,
    unterminatedArray,
    arraySeparatorExpected,
    unterminatedString,
    unterminatedEscape,
    invalidEscape, ///< The message goes on with the character after the backslash.
    truncatedUnicodeEscape,
    invalidHexDigit,
    missingNumber,
    numberWithoutDigit, ///< The message goes on with the number's text.
    trailingContent,
};

/// The sentence for `fault`, or its beginning. Users see it as it is.
std::string_view message(JSONFault fault);

}
