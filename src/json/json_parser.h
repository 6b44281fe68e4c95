// SPDX-License-Identifier: MIT
#pragma once

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

/// What becomes of an escaped half of a surrogate pair that stands alone.
enum class LoneSurrogates : std::uint8_t {
    replace, ///< It is read as U+FFFD, as everywhere where a user's file has to be taken as it is.
    refuse,  ///< It fails the text, where no character may be lost.
};

/// The value that `bytes` spell, in the grammar of JSONReader. A byte-order mark is no part of it.
std::expected<JSONValue, ParseError> parseJSON(std::string_view bytes,
                                               LoneSurrogates loneSurrogates = LoneSurrogates::replace);

}
