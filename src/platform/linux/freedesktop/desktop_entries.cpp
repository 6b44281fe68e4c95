// SPDX-License-Identifier: MIT
#include "platform/linux/freedesktop/desktop_entries.h"

#include "platform/posix/xdg_user_folders.h"
#include "ports/files.h"

#include <algorithm>
#include <utility>

namespace chimewell {

namespace {

/// An id's dashes may stand for folders: "kde-okular" is okular.desktop in kde/ too. Leftmost dashes first.
std::vector<std::filesystem::path> possibleNames(std::string_view id)
{
    std::string name = std::string(id) + ".desktop";
    std::vector<std::filesystem::path> names = {name};
    for (char& character : name)
        if (character == '-') {
            character = '/';
            names.emplace_back(name);
        }
    return names;
}

}

std::optional<InstalledEntry> findDesktopEntry(std::string_view id, const XdgUserFolders& folders,
                                               Files& files)
{
    if (id.empty()) return std::nullopt;
    for (const auto& folder : folders.dataFolders())
        for (const auto& name : possibleNames(id)) {
            std::filesystem::path file = folder / "applications" / name;
            const auto content = files.read(file);
            if (!content) continue;
            auto entry = DesktopEntry::parse(*content);
            // The first file of that name counts, also where it only says that the others do not.
            if (!entry || entry->flag("Hidden") || !entry->canBeTried()) return std::nullopt;
            return InstalledEntry{.id = std::string(id), .file = std::move(file), .entry = *std::move(entry)};
        }
    return std::nullopt;
}

}
