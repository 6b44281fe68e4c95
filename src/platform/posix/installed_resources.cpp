// SPDX-License-Identifier: MIT
#include "platform/posix/installed_resources.h"

#include <system_error>
#include <utility>

namespace chimewell {

InstalledResources::InstalledResources(std::vector<std::filesystem::path> folders)
    : folders_(std::move(folders))
{
}

std::optional<std::filesystem::path> InstalledResources::named(std::string_view name) const
{
    for (const std::filesystem::path& folder : folders_) {
        // It is written into other programs' files, where "bin/../libexec" would look odd.
        std::filesystem::path file = (folder / name).lexically_normal();
        std::error_code ignored;
        if (std::filesystem::is_regular_file(file, ignored)) return file;
    }
    return std::nullopt;
}

}
