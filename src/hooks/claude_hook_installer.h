// SPDX-License-Identifier: MIT
#pragma once

#include "hooks/json_hook_installer.h"

namespace chimewell {

/// Claude Code: matcher groups under "hooks" in ~/.claude/settings.json.
class ClaudeHookInstaller final : public JSONHookInstaller {
public:
    explicit ClaudeHookInstaller(Collaborators with);

private:
    JSONValue entry(const std::string& command) const override;
    std::vector<std::string> commands(const JSONValue& group) const override;
};

}
