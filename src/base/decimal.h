// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

namespace chimewell {

/// Reads the whole text as a decimal number: sign, digits, point, exponent, whatever the locale.
/// "5." and ".5" count. Hexadecimal, "inf", "nan", white space and trailing text do not, nor does a
/// number that no double can hold.
std::optional<double> decimal(std::string_view text);

}
