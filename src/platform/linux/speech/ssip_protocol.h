// SPDX-License-Identifier: MIT
#pragma once

#include "ports/speech_synthesizer.h"

#include <optional>
#include <string>
#include <string_view>

namespace chimewell {

/// A line that a speech service sends in the Speech Synthesis Interface Protocol: three digits, then `-`
/// when more lines of the same reply follow or a space on the last one, then text.
struct SsipLine {
    int code = 0; ///< 100 to 999
    bool isLast = true;
    std::string_view text; ///< Into the parsed line.

    bool isSuccess() const { return code >= 200 && code < 300; }
    /// Events come between the replies and belong to none.
    bool isEvent() const { return code >= 700 && code < 800; }
};

inline constexpr int ssipAwaitingText = 230; ///< The reply to SPEAK.
inline constexpr int ssipEndEvent = 702;
inline constexpr int ssipCancelEvent = 703;

/// `line` has no line break. Absent when it is not a line of the protocol.
std::optional<SsipLine> parseSsipLine(std::string_view line);

/// The voice in a row of LIST SYNTHESIS_VOICES, which is name, language and variant, separated by tabs.
/// Absent for the variants of a voice, of which some engines list hundreds ("German+Andrea"), and for a row
/// of another form.
std::optional<Voice> parseVoiceRow(std::string_view row);

/// What is sent after the command SPEAK: `text` line by line, and the line that ends it.
std::string ssipTextBlock(std::string_view text);

}
