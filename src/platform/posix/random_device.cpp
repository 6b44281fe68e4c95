// SPDX-License-Identifier: MIT
#include "platform/posix/random_device.h"

#include <cstdint>
#include <limits>
#include <random>

namespace chimewell {

namespace {

std::uint64_t randomBits()
{
    std::random_device device;
    return std::uint64_t{device()} << 32 | device();
}

}

double RandomDevice::unit()
{
    return static_cast<double>(randomBits()) / static_cast<double>(std::numeric_limits<std::uint64_t>::max());
}

std::string RandomDevice::uuid()
{
    // RFC 9562, section 5.4: version in the high half's lowest 16 bits, variant in the low half's top two.
    const std::uint64_t halves[] = {(randomBits() & ~std::uint64_t{0xF000}) | 0x4000,
                                    (randomBits() & ~(std::uint64_t{3} << 62)) | std::uint64_t{2} << 62};
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
