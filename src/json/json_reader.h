// SPDX-License-Identifier: MIT
#pragma once

#include "base/byte_word.h"
#include "base/percent.h"
#include "base/utf8.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace chimewell {

/// Why a text is no JSON of ours, in the order in which the reader can meet them.
enum class JSONFault : std::uint8_t {
    none,
    unexpectedEnd,
    invalidLiteral,
    keyExpected,
    colonExpected,
    unterminatedObject,
    objectSeparatorExpected,
    unterminatedArray,
    arraySeparatorExpected,
    unterminatedString,
    unterminatedEscape,
    invalidEscape, ///< The message goes on with the character after the backslash.
    truncatedUnicodeEscape,
    invalidHexDigit,
    missingNumber,
    numberWithoutDigit, ///< The message goes on with the number's text.
    trailingContent,
};

/// What a reader tells, in the order of the text. A key, string or number comes in one piece or more, the
/// last one marked; only the last may be empty. Strings and keys arrive unescaped, numbers as they are
/// spelled. A piece lives until the call returns, and may end inside a character.
template<class T>
concept JSONHandler = requires(T handler, std::string_view piece, bool last) {
    handler.beginObject();
    handler.endObject();
    handler.beginArray();
    handler.endArray();
    handler.key(piece, last);
    handler.string(piece, last);
    handler.number(piece, last);
    handler.boolean(true);
    handler.null();
};

/// Remembers for each open container whether it is an object: one bit a level.
class JSONNesting {
public:
    std::size_t depth() const { return depth_; }
    bool inObject() const { return (innermost_ & 1) != 0; } ///< There is an open container.

    void open(bool object)
    {
        if (depth_ % 64 == 0 && depth_ != 0) outer_.push_back(innermost_);
        innermost_ = innermost_ << 1 | static_cast<std::uint64_t>(object);
        ++depth_;
    }

    void close()
    {
        --depth_;
        innermost_ >>= 1;
        if (depth_ % 64 != 0 || depth_ == 0) return;
        innermost_ = outer_.back();
        outer_.pop_back();
    }

private:
    std::uint64_t innermost_ = 0; ///< The lowest bit is the innermost level.
    std::vector<std::uint64_t> outer_;
    std::size_t depth_ = 0;
};

/// Reads one JSON text piece by piece and tells a handler what is in it. Keeps nothing but one bit for
/// each open container, and never recurses. It is lenient in two ways, on purpose: strings may hold raw
/// control characters, and a number is any run of digits and `+-.eE` with at least one digit, for it is
/// carried, never computed. The bytes are taken to be UTF-8; where they are not, it goes on as well as it
/// can.
template<JSONHandler Handler>
class JSONReader {
public:
    /// `handler` outlives the reader.
    explicit JSONReader(Handler& handler) : handler_(handler) {}

    /// Reads on in `window` and returns how many of its bytes are done with. The rest, under 32 bytes, is cut
    /// short by the window's end and has to be at the start of the next window. `last` says that nothing
    /// follows: then everything is read, or there is a fault. After a fault nothing more is read.
    std::size_t feed(std::string_view window, bool last)
    {
        end_ = window.data() + window.size();
        last_ = last;
        const char* at = window.data();
        while (fault_ == JSONFault::none && step(at)) {
        }
        return static_cast<std::size_t>(at - window.data());
    }

    JSONFault fault() const { return fault_; }
    /// The character that follows the backslash of an invalid escape.
    std::string_view offendingCharacter() const { return {offender_.data(), offenderSize_}; }
    /// Whether the top-level value has ended. A number there ends only with what follows it.
    bool finished() const { return state_ == State::end; }
    /// Whether a surrogate that is not part of a pair was read as U+FFFD.
    bool sawLoneSurrogate() const { return sawLoneSurrogate_; }
    /// How many containers are open.
    std::size_t depth() const { return nesting_.depth(); }

private:
    /// What comes next. In `text` and `number` white space counts, elsewhere it is skipped.
    enum class State : std::uint8_t {
        value,
        firstElement,
        firstKey,
        key,
        colon,
        separator,
        text,
        number,
        end,
    };

    /// Each step reads one token, or the rest of one. False: nothing to be done before more input comes.
    bool step(const char*& at)
    {
        if (state_ == State::text) return readText(at);
        if (state_ == State::number) return readNumber(at);
        at = skipSpace(at, end_);
        if (at == end_) return wait(faultAtEnd());
        switch (state_) {
        case State::firstElement:
            if (*at == ']') return closeContainer(at);
            return readValue(at);
        case State::value:
            return readValue(at);
        case State::firstKey:
            if (*at == '}') return closeContainer(at);
            return readKey(at);
        case State::key:
            return readKey(at);
        case State::colon:
            if (*at != ':') return fail(JSONFault::colonExpected);
            ++at;
            state_ = State::value;
            return true;
        case State::separator:
            return readSeparator(at);
        case State::end:
            return fail(JSONFault::trailingContent);
        case State::text:
        case State::number:
            break;
        }
        return true;
    }

    bool fail(JSONFault fault)
    {
        fault_ = fault;
        return false;
    }

    /// The window ends too early: more has to come, or the text is at fault.
    bool wait(JSONFault otherwise) { return last_ ? fail(otherwise) : false; }

    JSONFault faultAtEnd() const
    {
        switch (state_) {
        case State::value:
        case State::firstElement:
            return JSONFault::unexpectedEnd;
        case State::firstKey:
        case State::key:
            return JSONFault::keyExpected;
        case State::colon:
            return JSONFault::colonExpected;
        case State::separator:
            return nesting_.inObject() ? JSONFault::unterminatedObject : JSONFault::unterminatedArray;
        case State::text:
        case State::number:
        case State::end:
            break;
        }
        return JSONFault::none;
    }

    bool readValue(const char*& at)
    {
        switch (*at) {
        case '"':
            ++at;
            inKey_ = false;
            state_ = State::text;
            return readText(at);
        case '{':
            ++at;
            handler_.beginObject();
            nesting_.open(true);
            state_ = State::firstKey;
            return true;
        case '[':
            ++at;
            handler_.beginArray();
            nesting_.open(false);
            state_ = State::firstElement;
            return true;
        case 't':
            if (!readLiteral(at, "true")) return false;
            handler_.boolean(true);
            return true;
        case 'f':
            if (!readLiteral(at, "false")) return false;
            handler_.boolean(false);
            return true;
        case 'n':
            if (!readLiteral(at, "null")) return false;
            handler_.null();
            return true;
        default:
            if (!isInNumber(*at)) return fail(JSONFault::missingNumber);
            sawDigit_ = false;
            state_ = State::number;
            return readNumber(at);
        }
    }

    bool readKey(const char*& at)
    {
        if (*at != '"') return fail(JSONFault::keyExpected);
        ++at;
        inKey_ = true;
        state_ = State::text;
        return readText(at);
    }

    bool readSeparator(const char*& at)
    {
        const bool object = nesting_.inObject();
        if (*at == ',') {
            ++at;
            state_ = object ? State::key : State::value;
            return true;
        }
        if (*at == (object ? '}' : ']')) return closeContainer(at);
        return fail(object ? JSONFault::objectSeparatorExpected : JSONFault::arraySeparatorExpected);
    }

    bool closeContainer(const char*& at)
    {
        ++at;
        if (nesting_.inObject())
            handler_.endObject();
        else
            handler_.endArray();
        nesting_.close();
        endValue();
        return true;
    }

    void endValue() { state_ = nesting_.depth() == 0 ? State::end : State::separator; }

    bool readLiteral(const char*& at, std::string_view literal)
    {
        const std::string_view rest(at, static_cast<std::size_t>(end_ - at));
        if (!rest.starts_with(literal))
            return literal.starts_with(rest) ? wait(JSONFault::invalidLiteral)
                                             : fail(JSONFault::invalidLiteral);
        at += literal.size();
        endValue();
        return true;
    }

    bool readNumber(const char*& at)
    {
        const char* const begin = at;
        for (; at != end_ && isInNumber(*at); ++at)
            sawDigit_ |= isDigit(*at);
        const std::string_view piece(begin, static_cast<std::size_t>(at - begin));
        const bool complete = at != end_ || last_;
        if (complete && sawDigit_) {
            handler_.number(piece, true);
            endValue();
            return true;
        }
        // Without a digit it never ends well, but the message needs its text.
        if (!piece.empty()) handler_.number(piece, false);
        return complete ? fail(JSONFault::numberWithoutDigit) : false;
    }

    bool readText(const char*& at)
    {
        for (;;) {
            const char* const stop = findTextStop(at, end_);
            const std::string_view run(at, static_cast<std::size_t>(stop - at));
            const bool complete = stop != end_ && *stop == '"';
            if (complete || !run.empty()) tellText(run, complete);
            at = stop;
            if (complete) break;
            if (at == end_) return wait(JSONFault::unterminatedString);
            if (!readEscape(at)) return false;
        }
        ++at;
        if (inKey_)
            state_ = State::colon;
        else
            endValue();
        return true;
    }

    void tellText(std::string_view piece, bool last)
    {
        if (inKey_)
            handler_.key(piece, last);
        else
            handler_.string(piece, last);
    }

    /// `at` is on a backslash, and stays there unless the whole escape could be read.
    bool readEscape(const char*& at)
    {
        if (end_ - at < 2) return wait(JSONFault::unterminatedEscape);
        const char letter = at[1];
        if (letter == 'u') return readUnicodeEscape(at);
        if (const char plain = plainEscape(letter)) {
            tellText({&plain, 1}, false);
            at += 2;
            return true;
        }
        const std::size_t size = utf8Length(letter);
        const auto left = static_cast<std::size_t>(end_ - at - 1);
        if (left < size && !last_) return false;
        for (offenderSize_ = 0; offenderSize_ < size && offenderSize_ < left; ++offenderSize_)
            offender_[offenderSize_] = at[1 + offenderSize_];
        return fail(JSONFault::invalidEscape);
    }

    bool readUnicodeEscape(const char*& at)
    {
        const std::optional<char32_t> unit = readHex(at + 2);
        if (!unit) return false;
        char32_t character = *unit;
        const char* next = at + 6;
        if (isHighSurrogate(character)) {
            // Whether a second escape follows is told by two characters.
            if (!last_ && (next == end_ || (next + 1 == end_ && *next == '\\'))) return false;
            std::optional<char32_t> second;
            if (end_ - next >= 2 && next[0] == '\\' && next[1] == 'u') {
                second = readHex(next + 2);
                if (!second) return false;
                next += 6;
            }
            if (second && isLowSurrogate(*second))
                character = 0x10000 + (character - 0xD800) * 0x400 + (*second - 0xDC00);
        }
        if (isHighSurrogate(character) || isLowSurrogate(character)) {
            character = replacementCharacter;
            sawLoneSurrogate_ = true;
        }
        tellText(Utf8Character(character).bytes(), false);
        at = next;
        return true;
    }

    /// The four digits at `digits`; none if they are not there yet, or with a fault.
    std::optional<char32_t> readHex(const char* digits)
    {
        char32_t unit = 0;
        int read = 0;
        for (; read < 4 && digits + read != end_; ++read) {
            const int digit = hexDigitValue(digits[read]);
            if (digit < 0) break;
            unit = unit << 4 | static_cast<char32_t>(digit);
        }
        if (read == 4) return unit;
        if (fourCharactersFollow(digits))
            fail(JSONFault::invalidHexDigit);
        else
            wait(JSONFault::truncatedUnicodeEscape);
        return std::nullopt;
    }

    /// Four characters of UTF-8 have 16 bytes at most.
    bool fourCharactersFollow(const char* at) const
    {
        if (end_ - at >= 16) return true;
        int characters = 0;
        for (; at != end_; ++at)
            characters += isUtf8Continuation(*at) ? 0 : 1;
        return characters >= 4;
    }

    static const char* skipSpace(const char* at, const char* end)
    {
        if (at != end && static_cast<unsigned char>(*at) > ' ') return at;
        for (;;) {
            while (end - at >= 8) { // indentation
                const ByteWord difference = loadWord(at) ^ allBytes(' ');
                if (difference != 0) {
                    at += firstByteSet(difference);
                    break;
                }
                at += 8;
            }
            if (at == end || !(*at == ' ' || *at == '\n' || *at == '\r' || *at == '\t')) return at;
            ++at;
        }
    }

    /// The first quote or backslash.
    static const char* findTextStop(const char* at, const char* end)
    {
        while (end - at >= 8) {
            const ByteWord word = loadWord(at);
            const ByteWord marks = markEqual(word, '"') | markEqual(word, '\\');
            if (marks != 0) return at + firstByteSet(marks);
            at += 8;
        }
        while (at != end && *at != '"' && *at != '\\')
            ++at;
        return at;
    }

    static bool isDigit(char c) { return c >= '0' && c <= '9'; }
    static bool isInNumber(char c)
    {
        return isDigit(c) || c == '-' || c == '.' || c == 'e' || c == 'E' || c == '+';
    }

    /// The character that `\` and `letter` stand for; NUL if none.
    static char plainEscape(char letter)
    {
        switch (letter) {
        case '"':
        case '\\':
        case '/':
            return letter;
        case 'b':
            return '\b';
        case 'f':
            return '\f';
        case 'n':
            return '\n';
        case 'r':
            return '\r';
        case 't':
            return '\t';
        default:
            return '\0';
        }
    }

    static bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
    static bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

    Handler& handler_;
    const char* end_ = nullptr; ///< Of the window being read.
    bool last_ = false;
    State state_ = State::value;
    JSONFault fault_ = JSONFault::none;
    bool inKey_ = false;
    bool sawDigit_ = false;
    bool sawLoneSurrogate_ = false;
    JSONNesting nesting_;
    std::array<char, 4> offender_{};
    std::size_t offenderSize_ = 0;
};

}
