// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

class Files;
class XdgUserFolders;

/// The main group of a desktop file (freedesktop.org, Desktop Entry 1.5).
class DesktopEntry {
public:
    /// Absent when the text has no such group. Lines that are not entries are skipped.
    static std::optional<DesktopEntry> parse(std::string_view text);

    /// The value without its escapes; empty when the key is missing.
    std::string text(std::string_view key) const;
    bool flag(std::string_view key, bool otherwise = false) const;
    /// The items of a list that is separated by semicolons.
    std::vector<std::string> list(std::string_view key) const;

    /// False when the entry names a program to try (TryExec) that cannot be run.
    bool canBeTried() const;
    /// The program and its arguments that Exec starts when there is no file to open. Absent when the line is
    /// missing or malformed. `file` is where the entry was read.
    std::optional<std::vector<std::string>> commandLine(const std::filesystem::path& file) const;

private:
    std::map<std::string, std::string, std::less<>> values_; ///< As written in the file, with their escapes.
};

/// A desktop file of an installed application.
struct InstalledEntry {
    std::string id; ///< Without ".desktop".
    std::filesystem::path file;
    DesktopEntry entry;
};

/// Finds the desktop file of `id` in the user's and the system's application folders. Absent when there is
/// none, when the user's own file says that it is deleted, or when its program is not there.
std::optional<InstalledEntry> findDesktopEntry(std::string_view id, const XdgUserFolders& folders,
                                               Files& files);

/// A value for Exec, escapes included, that starts exactly `command`.
std::string execValue(const std::vector<std::string>& command);

/// A value of type string, escapes included, for keys other than Exec.
std::string stringValue(std::string_view text);

}
