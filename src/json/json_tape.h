// SPDX-License-Identifier: MIT
#pragma once

#include "json/json_value.h"

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace chimewell {

/// Writes one value as a tape. It is a JSONHandler; what it is told must be one complete value.
class JSONTape {
public:
    /// Grows beyond `expectedSize` bytes where it must.
    explicit JSONTape(std::size_t expectedSize);

    void beginObject() { open(JSONTag::object); }
    void endObject() { close(); }
    void beginArray() { open(JSONTag::array); }
    void endArray() { close(); }
    void key(std::string_view piece, bool last) { string(piece, last); }
    void string(std::string_view piece, bool last);
    void number(std::string_view piece, bool last);
    void boolean(bool value) { putHeader(take(JSONNode::headerSize), value ? JSONTag::yes : JSONTag::no, 0); }
    void null() { putHeader(take(JSONNode::headerSize), JSONTag::null, 0); }
    void value(const JSONValue& value);

    /// The text of which not all pieces have come yet; empty if there is none.
    std::string_view unfinishedText() const;

    /// Hands the value over.
    JSONValue finish() &&;

private:
    struct Free {
        void operator()(char* bytes) const { std::free(bytes); }
    };

    void open(JSONTag tag);
    void close();
    char* addText(std::string_view piece); ///< Returns where the piece goes.
    void endText(JSONTag tag);
    std::size_t take(std::size_t size); ///< Makes room and returns where it starts.
    void grow(std::size_t size);
    void putHeader(std::size_t at, JSONTag tag, std::size_t size);

    static constexpr std::size_t nowhere = static_cast<std::size_t>(-1) >> 3;

    // Not std::string: it would fill with zeros what is overwritten, and copy where realloc moves pages.
    std::unique_ptr<char, Free> bytes_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
    std::size_t unfinishedText_ = nowhere;
    ByteWord escaped_ = 0; ///< Set where the unfinished text has to be escaped.
    /// The innermost open container. Until it is closed, its header holds the position of the next outer one.
    std::size_t openContainer_ = nowhere;
};

}
