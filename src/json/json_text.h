// SPDX-License-Identifier: MIT
#pragma once

#include "json/json_reader.h"
#include "json/json_value.h"

#include <cstdint>
#include <expected>
#include <string>
#include <string_view>

namespace chimewell {

struct ParseError {
    std::string message; ///< One sentence without a position.

    bool operator==(const ParseError&) const = default;
};

/// The sentence for `fault`, or its beginning. Users see it as it is.
std::string_view message(JSONFault fault);

/// What to do with an escaped surrogate that is not part of a pair.
enum class LoneSurrogates : std::uint8_t {
    replace, ///< It is read as U+FFFD: a user's file has to be accepted as it is.
    refuse,  ///< The text is refused, because no character may be lost.
};

/// The value that `bytes` spell, in the grammar of JSONReader. A byte-order mark is no part of it.
std::expected<JSONValue, ParseError> parseJSON(std::string_view bytes,
                                               LoneSurrogates loneSurrogates = LoneSurrogates::replace);

/// The text of `value`, two spaces a level, one member or element a line, without a line feed at the end.
/// Indentation grows with the square of the nesting: where a file of others decides on that, ask
/// writtenSize first.
std::string writeJSON(const JSONValue& value);

/// How many bytes writeJSON gives, found without writing them.
std::uint64_t writtenSize(const JSONValue& value);

/// `utf8` as a JSON string, quotes included. Escaped are quotes, backslashes and characters below U+0020.
std::string quoteJSON(std::string_view utf8);

}
