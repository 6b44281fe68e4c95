// SPDX-License-Identifier: MIT
// hook_driver PROVIDER HELPER ACTION...: lets an installer act on the real files of the home folder (HOME).
// Prints a line for each action's outcome; the status is 1 if one failed, 64 for a wrong call.
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

bool report(const HookInstaller::Result<ProviderInstallState>& state)
{
    say(state ? "ok" : "error: " + english(state.error().description()));
    return state.has_value();
}

bool report(const HookInstaller::Result<std::vector<HookChange>>& changes)
{
    if (!changes) {
        say("error: " + english(changes.error().description()));
        return false;
    }
    for (const HookChange& change : *changes)
        say((change.kind == HookChange::Kind::added ? "+ " : "- ") + change.entry);
    return true;
}

bool report(const HookInstallStatus& status)
{
    switch (status.kind) {
    case HookInstallStatus::Kind::installed:
        say("installed");
        break;
    case HookInstallStatus::Kind::notInstalled:
        say("not installed");
        break;
    case HookInstallStatus::Kind::comingSoon:
        say("coming soon");
        break;
    case HookInstallStatus::Kind::error:
        say("error: " + english(status.message));
        return false;
    }
    return true;
}

bool act(HookInstaller& installer, std::string_view action)
{
    if (action == "install") return report(installer.install());
    if (action == "uninstall") return report(installer.uninstall());
    if (action == "restore") return report(installer.restore());
    if (action == "status") return report(installer.status());
    if (action == "changes-by-install") return report(installer.changesByInstall());
    if (action == "changes-by-uninstall") return report(installer.changesByUninstall());
    if (action == "offers-restore") {
        say(installer.look({}).offersRestore ? "yes" : "no");
        return true;
    }
    return action == "nothing";
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
    if (*arguments[2] != '\0') (*installer)->helperPathOverride = arguments[2];
    bool allWell = true;
    for (const char* action : arguments.subspan(3))
        allWell = act(**installer, action) && allWell;
    return allWell ? 0 : 1;
}
