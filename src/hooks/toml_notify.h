// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

// All we know of TOML 1.0 is where the top-level key `notify` is set. The rest of the text is left alone.

/// The notify setting of a configuration.
struct NotifySetting {
    std::size_t begin = 0; ///< Of its first line.
    std::size_t size = 0;  ///< Of its lines, the last line feed included.
    /// The strings in its value: the program and its arguments, without quotes and escapes.
    std::vector<std::string> strings = {};
};

/// The first top-level notify setting. Ignores what is in a string or an array that spans lines, and
/// everything after the first table header.
std::optional<NotifySetting> findNotify(std::string_view toml);

/// Whether the text defines `notify` in another way, as a table or by a dotted key. A notify line would then
/// make it invalid.
bool definesNotifyOtherwise(std::string_view toml);

/// `toml` with `line`, which has no line feed, in the place of that setting. Without one it becomes the first
/// line, after a byte-order mark. The result ends with a line feed.
std::string withNotifyLine(std::string_view toml, const std::optional<NotifySetting>& replaced,
                           std::string_view line);
std::string withoutNotify(std::string_view toml, const NotifySetting& removed);

/// `text` as a TOML basic string, quotes included.
std::string tomlString(std::string_view text);

}
