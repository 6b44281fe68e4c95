// SPDX-License-Identifier: MIT
#pragma once

#include "json/json_value.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace chimewell {

/// The text of `value`, two spaces a level, one member or element a line, without a line feed at the end.
/// Indentation grows with the square of the nesting: where a file of others decides on that, ask
/// writtenSize first.
std::string writeJSON(const JSONValue& value);

/// How many bytes writeJSON gives, found without writing them.
std::uint64_t writtenSize(const JSONValue& value);

/// `utf8` as a JSON string, quotes included. Escaped are quotes, backslashes and characters below U+0020.
std::string quoteJSON(std::string_view utf8);

}
