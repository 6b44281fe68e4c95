// SPDX-License-Identifier: MIT
#include "json/json_text.h"

#include "base/byte_word.h"
#include "base/utf8.h"
#include "json/json_tape.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <utility>
#include <vector>

namespace chimewell {

namespace {

constexpr std::string_view messages[] = {
    // by fault
    "",
    "unexpected end of input",
    "invalid literal",
    "expected string key in object",
    "expected ':' after key",
    "unterminated object",
    "expected ',' or '}' in object",
    "unterminated array",
    "expected ',' or ']' in array",
    "unterminated string",
    "unterminated escape",
    "invalid escape \\",
    "truncated \\u escape",
    "invalid hex digit in \\u escape",
    "invalid number",
    "invalid number ",
    "trailing content after top-level value",
};
static_assert(std::size(messages) == static_cast<std::size_t>(JSONFault::trailingContent) + 1);

/// Counts what a Filler would write.
class Counter {
public:
    void put(char) { ++size_; }
    void put(std::string_view text) { size_ += text.size(); }
    void put(ByteWord, std::size_t count) { size_ += count; }
    void newLine(std::size_t level) { size_ += 1 + 2 * std::uint64_t{level}; }
    std::uint64_t size() const { return size_; }

private:
    std::uint64_t size_ = 0;
};

/// Writes into memory that has room for `slack` bytes more than the text needs.
class Filler {
public:
    static constexpr std::size_t slack = sizeof(ByteWord);

    explicit Filler(char* at) : at_(at) {}

    void put(char c) { *at_++ = c; }

    void put(std::string_view text)
    {
        std::memcpy(at_, text.data(), text.size());
        at_ += text.size();
    }

    /// The first `count` bytes of `word`.
    void put(ByteWord word, std::size_t count)
    {
        storeWord(at_, word);
        at_ += count;
    }

    void newLine(std::size_t level)
    {
        *at_++ = '\n';
        char* const end = at_ + 2 * level;
        for (; at_ < end; at_ += sizeof(ByteWord))
            storeWord(at_, allBytes(' '));
        at_ = end;
    }

private:
    char* at_;
};

template<class Output>
void putEscape(char c, Output& output)
{
    constexpr std::string_view named = "\b\t\n\f\r\"\\";
    constexpr std::string_view letters = "btnfr\"\\";
    output.put('\\');
    if (const auto at = named.find(c); at != std::string_view::npos) return output.put(letters[at]);
    output.put(c < 0x10 ? "u000" : "u001");
    output.put("0123456789abcdef"[c & 0xF]);
}

template<class Output>
void putQuoted(std::string_view text, Output& output)
{
    constexpr std::size_t wordSize = sizeof(ByteWord);
    output.put('"');
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end) {
        const auto left = static_cast<std::size_t>(end - at);
        const ByteWord word = left < wordSize ? loadShortWord(at, left) : loadWord(at);
        const ByteWord escaped = markEscaped(word);
        const std::size_t plain = escaped != 0 ? firstByteSet(escaped) : std::min(left, wordSize);
        output.put(word, plain);
        at += plain;
        if (escaped == 0) continue;
        putEscape(*at++, output);
    }
    output.put('"');
}

template<class Output>
void putString(const JSONNode& node, Output& output)
{
    if (node.tag() != JSONTag::plainString) return putQuoted(node.text(), output);
    output.put('"');
    output.put(node.text());
    output.put('"');
}

/// Puts the whole value, or only the opening bracket of a container that holds something.
template<class Output>
void putStart(const JSONNode& node, Output& output)
{
    switch (node.tag()) {
    case JSONTag::object:
        output.put(node.size() == 0 ? "{}" : "{");
        break;
    case JSONTag::array:
        output.put(node.size() == 0 ? "[]" : "[");
        break;
    case JSONTag::plainString:
    case JSONTag::escapedString:
        putString(node, output);
        break;
    case JSONTag::number:
        output.put(node.text());
        break;
    case JSONTag::yes:
        output.put("true");
        break;
    case JSONTag::no:
        output.put("false");
        break;
    case JSONTag::null:
        output.put("null");
        break;
    }
}

bool holdsValues(const JSONNode& node)
{
    return (node.tag() == JSONTag::object || node.tag() == JSONTag::array) && node.size() != 0;
}

template<class Output>
void putValue(const JSONValue& value, Output& output)
{
    std::vector<JSONNode> open; // containers, the innermost last
    JSONNode node = value.node();
    for (;;) {
        putStart(node, output);
        const char* next = node.end();
        if (holdsValues(node)) {
            open.push_back(node);
            next = node.payload();
        } else {
            while (!open.empty() && next == open.back().end()) {
                const char bracket = open.back().tag() == JSONTag::object ? '}' : ']';
                open.pop_back();
                output.newLine(open.size());
                output.put(bracket);
            }
            if (open.empty()) return;
            output.put(',');
        }
        output.newLine(open.size());
        node = JSONNode(next);
        if (open.back().tag() == JSONTag::object) {
            putString(node, output);
            output.put(": ");
            node = JSONNode(node.end());
        }
    }
}

/// The text of `size` bytes that `fill` writes.
template<class Fill>
std::string filled(std::uint64_t size, const Fill& fill)
{
    std::string text;
    text.resize_and_overwrite(static_cast<std::size_t>(size) + Filler::slack, [&](char* bytes, std::size_t) {
        Filler filler(bytes);
        fill(filler);
        return static_cast<std::size_t>(size);
    });
    return text;
}

}

std::string_view message(JSONFault fault)
{
    return messages[static_cast<std::size_t>(fault)];
}

std::expected<JSONValue, ParseError> parseJSON(std::string_view bytes, LoneSurrogates loneSurrogates)
{
    if (!isValidUtf8(bytes)) return std::unexpected(ParseError{"not valid UTF-8"});

    JSONTape tape(bytes.size() + JSONNode::headerSize);
    JSONReader reader(tape);
    reader.feed(bytes, true);
    if (reader.fault() != JSONFault::none) {
        ParseError error{std::string(message(reader.fault()))};
        if (reader.fault() == JSONFault::invalidEscape) error.message += reader.offendingCharacter();
        if (reader.fault() == JSONFault::numberWithoutDigit) error.message += tape.unfinishedText();
        return std::unexpected(std::move(error));
    }
    if (reader.sawLoneSurrogate() && loneSurrogates == LoneSurrogates::refuse)
        return std::unexpected(ParseError{"lone surrogate"});
    return std::move(tape).finish();
}

std::string writeJSON(const JSONValue& value)
{
    return filled(writtenSize(value), [&](Filler& filler) { putValue(value, filler); });
}

std::uint64_t writtenSize(const JSONValue& value)
{
    Counter counter;
    putValue(value, counter);
    return counter.size();
}

std::string quoteJSON(std::string_view utf8)
{
    Counter counter;
    putQuoted(utf8, counter);
    return filled(counter.size(), [&](Filler& filler) { putQuoted(utf8, filler); });
}

}
