// SPDX-License-Identifier: MIT
#include "json/json_tape.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>
#include <utility>

namespace chimewell {

namespace {

/// Text is copied a word at a time, so there is always room for one more.
constexpr std::size_t wordSize = sizeof(ByteWord);

}

JSONTape::JSONTape(std::size_t expectedSize)
{
    grow(expectedSize);
}

void JSONTape::grow(std::size_t size)
{
    char* const old = bytes_.release();
    char* const moved = static_cast<char*>(std::realloc(old, size + wordSize));
    bytes_.reset(moved != nullptr ? moved : old);
    if (moved == nullptr) throw std::bad_alloc();
    capacity_ = size;
}

std::size_t JSONTape::take(std::size_t size)
{
    if (capacity_ - size_ < size) grow(std::max(size_ + size, capacity_ + capacity_ / 2));
    return std::exchange(size_, size_ + size);
}

void JSONTape::putHeader(std::size_t at, JSONTag tag, std::size_t size)
{
    const std::uint64_t header = JSONNode::header(tag, size);
    std::memcpy(bytes_.get() + at, &header, sizeof header);
}

void JSONTape::open(JSONTag tag)
{
    const std::size_t at = take(JSONNode::headerSize);
    putHeader(at, tag, openContainer_);
    openContainer_ = at;
}

void JSONTape::close()
{
    const JSONNode node(bytes_.get() + openContainer_);
    const std::size_t outer = node.size();
    putHeader(openContainer_, node.tag(), size_ - openContainer_ - JSONNode::headerSize);
    openContainer_ = outer;
}

void JSONTape::string(std::string_view piece, bool last)
{
    char* to = addText(piece);
    const char* from = piece.data();
    for (std::size_t left = piece.size(); left != 0;) {
        const std::size_t count = std::min(left, wordSize);
        const ByteWord word = count < wordSize ? loadShortWord(from, count) : loadWord(from);
        storeWord(to, word);
        escaped_ |= markEscaped(word);
        from += count;
        to += count;
        left -= count;
    }
    if (last) endText(std::exchange(escaped_, 0) == 0 ? JSONTag::plainString : JSONTag::escapedString);
}

void JSONTape::number(std::string_view piece, bool last)
{
    char* const to = addText(piece);
    if (!piece.empty()) std::memcpy(to, piece.data(), piece.size());
    if (last) endText(JSONTag::number);
}

char* JSONTape::addText(std::string_view piece)
{
    if (unfinishedText_ == nowhere) unfinishedText_ = take(JSONNode::headerSize);
    const std::size_t at = take(piece.size());
    return bytes_.get() + at;
}

void JSONTape::endText(JSONTag tag)
{
    putHeader(unfinishedText_, tag, size_ - unfinishedText_ - JSONNode::headerSize);
    unfinishedText_ = nowhere;
}

void JSONTape::value(const JSONValue& value)
{
    const std::string_view flat = value.node().bytes();
    const std::size_t at = take(flat.size());
    std::memcpy(bytes_.get() + at, flat.data(), flat.size());
}

std::string_view JSONTape::unfinishedText() const
{
    if (unfinishedText_ == nowhere) return {};
    return std::string_view(bytes_.get(), size_).substr(unfinishedText_ + JSONNode::headerSize);
}

JSONValue JSONTape::finish() &&
{
    grow(size_);
    return JSONValue(std::shared_ptr<const char>(std::move(bytes_)));
}

}
