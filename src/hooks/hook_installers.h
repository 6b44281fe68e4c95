// SPDX-License-Identifier: MIT
#pragma once

#include "hooks/claude_hook_installer.h"
#include "hooks/codex_hook_installer.h"
#include "hooks/cursor_hook_installer.h"

#include <array>
#include <string_view>

namespace chimewell {

/// One installer for each agent that we know, in the order in which they are shown.
class HookInstallers {
public:
    explicit HookInstallers(HookInstaller::Collaborators with) : claude_(with), codex_(with), cursor_(with) {}
    HookInstallers(const HookInstallers&) = delete;
    HookInstallers& operator=(const HookInstallers&) = delete;

    const std::array<HookInstaller*, 3>& all() const { return all_; }
    /// Null for an agent that we do not know.
    HookInstaller* find(std::string_view providerId) const;

private:
    ClaudeHookInstaller claude_;
    CodexHookInstaller codex_;
    CursorHookInstaller cursor_;
    std::array<HookInstaller*, 3> all_ = {&claude_, &codex_, &cursor_};
};

}
