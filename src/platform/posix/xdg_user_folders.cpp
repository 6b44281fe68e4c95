// SPDX-License-Identifier: MIT
#include "platform/posix/xdg_user_folders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <ranges>
#include <string_view>

namespace chimewell {

namespace {

using Paths = std::vector<std::filesystem::path>;

std::string_view variable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// The absolute paths in `list`, which is separated by colons.
Paths absolutePaths(std::string_view list)
{
    Paths paths;
    for (const auto part : std::views::split(list, ':'))
        if (const std::string_view path(part.begin(), part.end()); path.starts_with('/'))
            paths.emplace_back(path);
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
