// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace chimewell {

/// Eight bytes of text looked at together: byte 0 is the first one in memory and the lowest of the number,
/// on every machine. The `mark` functions set the top bit of each byte that fits; a byte above the first
/// mark may be marked wrongly, so only "none" and the first mark count.
using ByteWord = std::uint64_t;

inline ByteWord loadWord(const char* bytes)
{
    ByteWord word = 0;
    std::memcpy(&word, bytes, sizeof word);
    if constexpr (std::endian::native == std::endian::big) word = std::byteswap(word);
    return word;
}

inline void storeWord(char* bytes, ByteWord word)
{
    if constexpr (std::endian::native == std::endian::big) word = std::byteswap(word);
    std::memcpy(bytes, &word, sizeof word);
}

constexpr ByteWord allBytes(unsigned char byte)
{
    return ByteWord{0x0101010101010101} * byte;
}

/// The `count` bytes, fewer than eight, and spaces after them.
inline ByteWord loadShortWord(const char* bytes, std::size_t count)
{
    const auto byte = [&](std::size_t i) { return ByteWord{static_cast<unsigned char>(bytes[i])} << 8 * i; };
    ByteWord word = allBytes(' ') << 8 * count;
    if (count >= 4) {
        std::uint32_t first = 0;
        std::uint32_t last = 0;
        std::memcpy(&first, bytes, sizeof first);
        std::memcpy(&last, bytes + count - 4, sizeof last);
        if constexpr (std::endian::native == std::endian::big) {
            first = std::byteswap(first);
            last = std::byteswap(last);
        }
        word |= first | ByteWord{last} << 8 * (count - 4);
    } else if (count > 0) {
        word |= byte(0) | byte(count / 2) | byte(count - 1);
    }
    return word;
}

constexpr ByteWord topBits = allBytes(0x80);

constexpr ByteWord markEqual(ByteWord word, char byte)
{
    const ByteWord difference = word ^ allBytes(static_cast<unsigned char>(byte));
    return (difference - allBytes(1)) & ~difference & topBits;
}

/// `limit` is at most 0x80.
constexpr ByteWord markBelow(ByteWord word, unsigned char limit)
{
    return (word - allBytes(limit)) & ~word & topBits;
}

/// Index of the first byte that is not zero; `word` has one.
constexpr std::size_t firstByteSet(ByteWord word)
{
    return static_cast<std::size_t>(std::countr_zero(word)) / 8;
}

}
