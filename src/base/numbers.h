// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace chimewell {

/// The integer that a JSON number (RFC 8259) spells, also as "1.0" or "1e2". Nothing for any other
/// text, for a number with a fraction, and beyond 64 bits.
std::optional<std::int64_t> integral(std::string_view number);

/// Reads the whole text as a decimal number: sign, digits, point, exponent, whatever the locale.
/// "5." and ".5" count. Hexadecimal, "inf", "nan", white space and trailing text do not, nor does a
/// number that no double can hold.
std::optional<double> decimal(std::string_view text);

}
