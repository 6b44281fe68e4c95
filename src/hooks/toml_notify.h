// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

// The one thing we know of TOML (version 1.0): where the top-level key `notify` stands. Everything else is
// lines of text that stay as they are.

/// The whole lines of the notify setting, the last one's line feed included.
struct NotifyLines {
    std::size_t begin = 0;
    std::size_t size = 0;
    bool operator==(const NotifyLines&) const = default;

    std::string_view in(std::string_view toml) const { return toml.substr(begin, size); }
};

/// The first top-level notify setting. Nothing inside a string or an array that spans lines counts, nor
/// anything behind the first table header.
std::optional<NotifyLines> findNotify(std::string_view toml);

/// The strings in the value of a notify setting, without their quotes and escapes.
std::vector<std::string> notifyStrings(std::string_view setting);

/// Whether the text defines `notify` in another way, as a table or by a dotted key: then another definition
/// of it would make the text invalid.
bool definesNotifyOtherwise(std::string_view toml);

/// `toml` with `line`, which has no line feed, in the place of the lines given, or as the first line (behind
/// a byte-order mark, which stays the first). Ends with a line feed.
std::string withNotifyLine(std::string_view toml, const std::optional<NotifyLines>& replaced,
                           std::string_view line);
std::string withoutNotify(std::string_view toml, const NotifyLines& removed);

/// `text` as a TOML basic string, quotes included.
std::string tomlString(std::string_view text);

}
