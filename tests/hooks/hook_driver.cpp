// SPDX-License-Identifier: MIT
// hook_driver PROVIDER HELPER ACTION...: runs an installer (install, uninstall, restore, status, nothing) on
// the real files of the home folder (HOME). Prints a line for each outcome; the status is 1 if one failed.
#include "hooks/hook_installers.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/xdg_user_folders.h"
#include "support/fixed_places.h"

#include <algorithm>
#include <cstdio>
#include <span>
#include <string>
#include <string_view>

namespace {

using namespace chimewell;

/// What came of it; "error: " and the reason if it failed.
std::string outcome(HookInstaller& installer, std::string_view action)
{
    if (action == "status")
        return installer.status().kind == HookInstallStatus::Kind::installed ? "installed" : "not installed";
    const auto done = action == "install"     ? installer.install()
                      : action == "uninstall" ? installer.uninstall()
                                              : installer.restore();
    return done ? "ok" : "error: " + english(done.error().description());
}

}

int main(int argc, char** argv)
{
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    PosixFiles files;
    const PosixClock clock;
    const XdgUserFolders folders;
    test::OneResource resources;
    resources.helper = arguments[2];
    const HookInstallers installers(
        {.files = files, .clock = clock, .folders = folders, .resources = resources});
    HookInstaller& installer =
        **std::ranges::find(installers.all(), std::string_view(arguments[1]), &HookInstaller::providerId);
    bool allWell = true;
    for (const std::string_view action : arguments.subspan(3)) {
        if (action == "nothing") continue;
        const std::string line = outcome(installer, action);
        std::puts(line.c_str());
        allWell = allWell && !line.starts_with("error");
    }
    return allWell ? 0 : 1;
}
