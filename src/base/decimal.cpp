// SPDX-License-Identifier: MIT
#include "base/decimal.h"

#include <locale>
#include <sstream>
#include <string>

namespace chimewell {

std::optional<double> decimal(std::string_view text)
{
    // A stream rather than from_chars: libc++ 19 has none for floating point.
    // The stream skips leading white space, and some read hexadecimal, "inf" and "nan".
    if (text.empty() || text.find_first_not_of("0123456789+-.eE") != std::string_view::npos)
        return std::nullopt;
    std::istringstream stream{std::string(text)};
    stream.imbue(std::locale::classic());
    double value = 0;
    if (!(stream >> value) || stream.peek() != std::istringstream::traits_type::eof()) return std::nullopt;
    return value;
}

}
