// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <string_view>

namespace chimewell::fuzz {

/// What each target defines: checks what has to hold for any bytes.
void check(std::string_view bytes);

/// Ends the program, which libFuzzer reports with the input, unless `holds`.
inline void require(bool holds)
{
    if (!holds) std::abort();
}

}
