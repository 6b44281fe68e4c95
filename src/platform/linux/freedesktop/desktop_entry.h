// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

/// The main group of a desktop file (freedesktop.org, Desktop Entry 1.5).
class DesktopEntry {
public:
    /// Nothing when the text has no such group. Lines that are no entries are passed over.
    static std::optional<DesktopEntry> parse(std::string_view text);

    /// The value without its escapes; empty when the key is missing.
    std::string text(std::string_view key) const;
    bool flag(std::string_view key, bool otherwise = false) const;
    /// The items of a list that semicolons separate.
    std::vector<std::string> list(std::string_view key) const;

    /// Whether the program is there as far as the entry tells: TryExec, when given, can be run.
    bool canBeTried() const;

private:
    std::map<std::string, std::string, std::less<>> values_; ///< As they stand in the file.
};

}
