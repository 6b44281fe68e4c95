// SPDX-License-Identifier: MIT
#pragma once

#include "ports/login_item.h"

#include <filesystem>
#include <string>
#include <vector>

namespace chimewell {

class Files;
class XdgUserFolders;

/// Starts the application at log-in by a file in the user's autostart folder (freedesktop.org, Desktop
/// Application Autostart 0.5).
class AutostartLoginItem final : public LoginItem {
public:
    /// `command` is the program, with its full path, and its arguments. The references outlive the item.
    AutostartLoginItem(const XdgUserFolders& folders, Files& files, std::vector<std::string> command);

    /// Reads the files each time, because the user and the desktop's own settings change them too.
    bool isEnabled() const override;
    std::expected<void, Phrase> registerItem() override;
    /// Removes the file. When the system has an entry of its own, writes a file that hides it instead.
    std::expected<void, Phrase> unregisterItem() override;

private:
    bool hasSystemEntry() const;
    std::expected<void, Phrase> write(const std::string& lines);

    const XdgUserFolders& folders_;
    Files& files_;
    std::vector<std::string> command_;
};

}
