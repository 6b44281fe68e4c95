// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace chimewell {

/// The first `count` user-perceived characters (extended grapheme clusters, Unicode Standard
/// Annex 29) of valid UTF-8. One of them may be any number of bytes; the time is linear in the text.
std::string_view firstCharacters(std::string_view text, std::size_t count);

/// `text` without white space and line breaks at both ends. White space is Unicode's general
/// categories Zs, Zl and Zp, U+0009 to U+000D and U+0085; U+FEFF is none.
std::string_view trimmed(std::string_view text);

/// The longest text that is shown or spoken at once. Desktops and toolkits draw, or speak, far more for
/// seconds on end.
inline constexpr std::size_t maxReadableBytes = 4096;

/// Text that others wrote, made safe to be shown and spoken:
/// - valid UTF-8, with U+FFFD where it was not;
/// - at most `maxReadableBytes`, cut at a code point's end;
/// - at most 30 combining marks on a letter (the limit of the Stream-Safe Text Format, Unicode Standard
///   Annex 15): the time to lay out one letter grows with the square of its marks;
/// - no control characters: a tab becomes a space, any other U+FFFD;
/// - no bidirectional embedding, override or isolate, which could show the text in another order than it is
///   written in. Balanced isolates go too: each text is a paragraph of its own, so it has nothing to be
///   isolated from, and a cut could leave one open. The letter-like marks (U+200E, U+200F, U+061C) stay:
///   they are part of ordinary right-to-left writing and reorder nothing but their neighbours.
/// Every kind of line break is one line feed afterwards.
std::string readableText(std::string_view text);

/// The same on one line: a run of line breaks is one space.
std::string readableLine(std::string_view text);

}
