// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace chimewell {

/// -1 for any other character.
constexpr int hexDigitValue(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

/// Appends two hexadecimal digits, in upper case.
void appendHexPair(std::string& text, char byte);

/// Appends `bytes`; all but the unreserved characters of RFC 3986 (section 2.3) and those of `kept` are
/// escaped, each by `%` and two hexadecimal digits.
void appendPercentEncoded(std::string& text, std::string_view bytes, std::string_view kept = {});

/// Each `%` followed by two hexadecimal digits becomes that byte (RFC 3986, section 2.1). Any other `%`, and
/// `+`, stay themselves. The result need not be UTF-8.
std::string percentDecoded(std::string_view text);

/// The same, but nothing where a `%` is not followed by two hexadecimal digits.
std::optional<std::string> strictlyPercentDecoded(std::string_view text);

}
