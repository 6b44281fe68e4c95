// SPDX-License-Identifier: MIT
#pragma once

#include "hooks/hook_installer.h"

namespace chimewell {

/// Codex: the one line `notify = […]` at the top level of ~/.codex/config.toml. Codex runs a single notify
/// program, so one that is not ours is never replaced.
class CodexHookInstaller final : public HookInstaller {
public:
    explicit CodexHookInstaller(Collaborators with);

private:
    Result<std::string> withHooks(const Content& content, const std::string& helper) const override;
    Result<Content> withoutHooks(const std::string& content) const override;
    Result<std::vector<std::string>> entries(const std::string& content) const override;
    bool lacksEntries(const std::vector<std::string>& present) const override { return present.empty(); }
};

}
