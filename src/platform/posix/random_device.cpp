// SPDX-License-Identifier: MIT
#include "platform/posix/random_device.h"

#include "platform/posix/random_bytes.h"

#include <array>
#include <bit>
#include <cstdint>
#include <limits>
#include <string_view>

namespace chimewell {

namespace {

template<class Bits>
Bits randomBits()
{
    std::array<std::byte, sizeof(Bits)> bytes;
    fillWithRandom(bytes);
    return std::bit_cast<Bits>(bytes);
}

}

double RandomDevice::unit()
{
    return static_cast<double>(randomBits<std::uint64_t>()) /
           static_cast<double>(std::numeric_limits<std::uint64_t>::max());
}

std::string RandomDevice::uuid()
{
    // RFC 9562, section 5.4: version in the high half's lowest 16 bits, variant in the low half's top two.
    auto halves = randomBits<std::array<std::uint64_t, 2>>();
    halves[0] = (halves[0] & ~std::uint64_t{0xF000}) | 0x4000;
    halves[1] = (halves[1] & ~(std::uint64_t{3} << 62)) | std::uint64_t{2} << 62;
    std::string text;
    text.reserve(36);
    for (const std::uint64_t half : halves)
        for (int shift = 60; shift >= 0; shift -= 4) {
            if (text.size() == 8 || text.size() == 13 || text.size() == 18 || text.size() == 23) text += '-';
            text += "0123456789ABCDEF"[half >> shift & 15];
        }
    return text;
}

}
