// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/freedesktop/desktop_entry.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace chimewell {

class Files;
class XdgUserFolders;

/// A desktop file of an installed application.
struct InstalledEntry {
    std::string id; ///< Without ".desktop".
    std::filesystem::path file;
    DesktopEntry entry;
};

/// Finds the desktop file of `id` in the user's and the system's application folders. Nothing when
/// there is none, when the user's own says that it is deleted, or when its program is not there.
std::optional<InstalledEntry> findDesktopEntry(std::string_view id, const XdgUserFolders& folders,
                                               Files& files);

}
