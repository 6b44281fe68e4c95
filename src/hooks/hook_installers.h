// SPDX-License-Identifier: MIT
#pragma once

#include "hooks/codex_hook_installer.h"
#include "hooks/json_hook_installer.h"
#include "values/provider.h"

#include <array>

namespace chimewell {

/// One installer for each supported agent, in the order in which they are shown.
class HookInstallers {
public:
    explicit HookInstallers(HookInstaller::Collaborators with) : claude_(with), codex_(with), cursor_(with) {}
    HookInstallers(const HookInstallers&) = delete;
    HookInstallers& operator=(const HookInstallers&) = delete;

    using All = std::array<HookInstaller*, 3>;
    static_assert(std::tuple_size_v<All> == knownProviders.size(), "an agent has no installer");
    const All& all() const { return all_; }

private:
    ClaudeHookInstaller claude_;
    CodexHookInstaller codex_;
    CursorHookInstaller cursor_;
    All all_ = {&claude_, &codex_, &cursor_};
};

}
