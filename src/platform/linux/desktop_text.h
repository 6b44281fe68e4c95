// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace chimewell {

/// The most text a desktop service is given at once. Some draw, or speak, far more for seconds on end.
inline constexpr std::size_t maxDesktopTextBytes = 4096;

/// Text that others wrote, made safe for the desktop's services:
/// - valid UTF-8, with U+FFFD where it was not;
/// - at most `maxDesktopTextBytes`, cut at a code point's end;
/// - no control characters: a tab becomes a space, any other U+FFFD;
/// - no bidirectional embedding, override or isolate, which could show the text in another order than it is
///   written in. Balanced isolates go too: title and body are paragraphs of their own, so they have nothing
///   to be isolated from, and a cut could leave one open. The letter-like marks (U+200E, U+200F, U+061C)
///   stay: they are part of ordinary right-to-left writing and reorder nothing but their neighbours.
/// Every kind of line break is one line feed afterwards.
std::string desktopBody(std::string_view text);

/// The same on one line: a run of line breaks is one space.
std::string desktopTitle(std::string_view text);

/// `text` as it is written where markup is understood.
std::string escapedMarkup(std::string_view text);

}
