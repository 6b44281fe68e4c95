// SPDX-License-Identifier: MIT
#pragma once

#include "json/json_text.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace chimewell::test {

/// What a reader told, with the pieces of a text put together again. A text that did not end shows no `;`.
class Transcript {
public:
    void beginObject() { told_ += '{'; }
    void endObject() { told_ += '}'; }
    void beginArray() { told_ += '['; }
    void endArray() { told_ += ']'; }
    void key(std::string_view piece, bool last) { text("k:", piece, last); }
    void string(std::string_view piece, bool last) { text("s:", piece, last); }
    void number(std::string_view piece, bool last) { text("n:", piece, last); }
    void boolean(bool value) { told_ += value ? "true;" : "false;"; }
    void null() { told_ += "null;"; }

    const std::string& told() const { return told_; }
    /// Whether every piece but the last of a text held something.
    bool kept() const { return kept_; }

private:
    void text(std::string_view label, std::string_view piece, bool last)
    {
        if (!unfinished_) told_ += label;
        told_ += piece;
        if (last) told_ += ';';
        kept_ = kept_ && (last || !piece.empty());
        unfinished_ = !last;
    }

    std::string told_;
    bool unfinished_ = false;
    bool kept_ = true;
};

struct Reading {
    std::string told;
    std::string fault; ///< With the offending character.
    bool loneSurrogate = false;
    bool kept = true; ///< The rests were short, and no piece was empty without need.

    bool operator==(const Reading&) const = default;
};

/// Reads `text` as a program does that gets it in pieces: the first ends at `cut`, the others hold
/// `pieceSize` bytes, and what the reader leaves goes to the front of the next window.
inline Reading readInPieces(std::string_view text, std::size_t cut, std::size_t pieceSize)
{
    constexpr std::size_t longestRest = 31;
    Transcript transcript;
    JSONReader reader(transcript);
    bool restsWereShort = true;
    std::string window;
    for (std::size_t taken = 0, upTo = cut;; upTo = taken + pieceSize) {
        const std::string_view piece = text.substr(taken, upTo - taken);
        taken += piece.size();
        window += piece;
        const bool last = taken == text.size();
        window.erase(0, reader.feed(window, last));
        if (reader.fault() != JSONFault::none || last) break;
        restsWereShort = restsWereShort && window.size() <= longestRest;
    }
    const bool allRead = reader.fault() != JSONFault::none || window.empty();
    return {.told = transcript.told(),
            .fault = std::string(message(reader.fault())) + std::string(reader.offendingCharacter()),
            .loneSurrogate = reader.sawLoneSurrogate(),
            .kept = transcript.kept() && restsWereShort && allRead};
}

inline Reading readWhole(std::string_view text)
{
    return readInPieces(text, text.size(), text.size());
}

}
