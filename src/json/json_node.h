// SPDX-License-Identifier: MIT
#pragma once

#include "base/byte_word.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace chimewell {

/// A string is plain if no character of it has to be escaped; the tag says so to make writing fast.
enum class JSONTag : std::uint8_t { object, array, plainString, escapedString, number, yes, no, null };

/// Marks, as ByteWord's functions do, the characters that are escaped in a string.
constexpr ByteWord markEscaped(ByteWord word)
{
    return markEqual(word, '"') | markEqual(word, '\\') | markBelow(word, 0x20);
}

/// A value inside a tape, the flat form of a JSON value. It starts with a header of eight bytes, the tag in
/// the low three bits and the payload's size above them. The payload follows: the text of a string or number,
/// the elements of an array one after another, or the members of an object, a string and a value each. So
/// equal values are equal bytes, and a value is skipped by its size.
class JSONNode {
public:
    static constexpr std::size_t headerSize = sizeof(std::uint64_t);

    static constexpr std::uint64_t header(JSONTag tag, std::size_t size)
    {
        return std::uint64_t{size} << 3 | static_cast<std::uint64_t>(tag);
    }

    /// `start` is where the value's header stands.
    explicit JSONNode(const char* start) : start_(start) {}

    JSONTag tag() const { return static_cast<JSONTag>(readHeader() & 7); }
    std::size_t size() const { return static_cast<std::size_t>(readHeader() >> 3); }
    const char* start() const { return start_; }
    const char* payload() const { return start_ + headerSize; }
    const char* end() const { return payload() + size(); }
    std::string_view text() const { return {payload(), size()}; }
    /// Header and payload.
    std::string_view bytes() const { return {start_, headerSize + size()}; }

private:
    std::uint64_t readHeader() const
    {
        std::uint64_t header = 0;
        std::memcpy(&header, start_, headerSize);
        return header;
    }

    const char* start_;
};

}
