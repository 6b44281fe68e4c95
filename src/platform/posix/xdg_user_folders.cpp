// SPDX-License-Identifier: MIT
#include "platform/posix/xdg_user_folders.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

namespace chimewell {

namespace {

using Paths = std::vector<std::filesystem::path>;

std::string_view variable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// The absolute ones of the paths in `list`, which colons separate.
Paths absolutePaths(std::string_view list)
{
    Paths paths;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(':'), list.size());
        if (list.starts_with('/')) paths.emplace_back(list.substr(0, end));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return paths;
}

std::filesystem::path homeFolder()
{
    if (variable("HOME").starts_with('/')) return variable("HOME");
    const passwd* user = ::getpwuid(::getuid());
    if (user && std::string_view(user->pw_dir).starts_with('/')) return user->pw_dir;
    return "/";
}

Paths folders(std::string_view own, const std::filesystem::path& ownDefault, std::string_view shared,
              std::string_view sharedDefault)
{
    Paths result = {own.starts_with('/') ? std::filesystem::path(own) : ownDefault};
    Paths others = absolutePaths(shared);
    if (others.empty()) others = absolutePaths(sharedDefault);
    result.insert(result.end(), others.begin(), others.end());
    return result;
}

}

XdgUserFolders::XdgUserFolders()
    : home_(homeFolder()),
      dataFolders_(folders(variable("XDG_DATA_HOME"), home_ / ".local/share", variable("XDG_DATA_DIRS"),
                           "/usr/local/share:/usr/share")),
      configFolders_(
          folders(variable("XDG_CONFIG_HOME"), home_ / ".config", variable("XDG_CONFIG_DIRS"), "/etc/xdg"))
{
}

}
