// SPDX-License-Identifier: MIT
// hook_driver PROVIDER HELPER ACTION...: runs an installer (install, uninstall, restore, status, nothing) on
// the real files of the home folder (HOME). Prints a line for each outcome; the status is 1 if one failed, 64
// for a wrong call.
#include "hooks/hook_installers.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/xdg_user_folders.h"

#include <algorithm>
#include <cstdio>
#include <span>
#include <string>
#include <string_view>

namespace {

using namespace chimewell;

class NoResources final : public Resources {
public:
    std::optional<std::filesystem::path> named(std::string_view) const override { return std::nullopt; }
};

void say(const std::string& line)
{
    std::puts(line.c_str());
}

bool act(HookInstaller& installer, std::string_view action)
{
    if (action == "nothing") return true;
    if (action == "status") {
        say(installer.status().kind == HookInstallStatus::Kind::installed ? "installed" : "not installed");
        return true;
    }
    const auto done = action == "install"     ? installer.install()
                      : action == "uninstall" ? installer.uninstall()
                                              : installer.restore();
    say(done ? "ok" : "error: " + english(done.error().description()));
    return done.has_value();
}

}

int main(int argc, char** argv)
{
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    PosixFiles files;
    const PosixClock clock;
    const XdgUserFolders folders;
    const NoResources resources;
    const HookInstallers installers(
        {.files = files, .clock = clock, .folders = folders, .resources = resources});
    if (arguments.size() < 4) return 64;
    const auto installer =
        std::ranges::find(installers.all(), std::string_view(arguments[1]), &HookInstaller::providerId);
    if (installer == installers.all().end()) return 64;
    (*installer)->helperPathOverride = arguments[2];
    bool allWell = true;
    for (const char* action : arguments.subspan(3))
        allWell = act(**installer, action) && allWell;
    return allWell ? 0 : 1;
}
