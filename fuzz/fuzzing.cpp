// SPDX-License-Identifier: MIT
#include "fuzzing.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // The one way to look at the bytes as text.
    chimewell::fuzz::check({reinterpret_cast<const char*>(data), size});
    return 0;
}
