// SPDX-License-Identifier: MIT
// Whatever the agents' files hold: installing and uninstalling leaves all that is not ours as it was, in its
// order, and a file that is refused keeps its bytes.
#include "fuzzing.h"
#include "hooks/json_hook_installer.h"
#include "support/fake_time.h"
#include "support/fixed_places.h"
#include "support/memory_files.h"
#include "json/json_text.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace chimewell::fuzz {

namespace {

template<class Installer>
void installAndUninstall(const std::string& before)
{
    test::MemoryFiles files;
    test::FakeTime time;
    const test::FixedHome home;
    const test::OneResource helper;
    Installer installer({.files = files, .clock = time, .folders = home, .resources = helper});
    std::string& content = files.contents[installer.settingsFileURL()];
    content = before;

    if (!installer.install()) {
        require(content == before);
        return;
    }
    const std::string once = content;
    require(installer.status().kind == HookInstallStatus::Kind::installed);
    require(installer.install().has_value());
    require(content == once);
    require(installer.uninstall().has_value());
    require(installer.status().kind == HookInstallStatus::Kind::notInstalled);

    // Without anything of ours in it, the file comes back in the writer's layout, but for containers that
    // were made.
    if (before.find("chimewell-hook") != std::string::npos || before.find('\\') != std::string::npos) return;
    const auto original = parseJSON(before);
    const auto left = parseJSON(content);
    require(original && left);
    const auto kept = left->members();
    for (const JSONMember& member : original->members())
        require(member.key == "hooks" || std::ranges::find(kept, member) != kept.end());
}

}

void check(std::string_view bytes)
{
    const std::string text(bytes);
    installAndUninstall<ClaudeHookInstaller>(text);
    installAndUninstall<CursorHookInstaller>(text);
}

}
