// SPDX-License-Identifier: MIT
#pragma once

#include "hooks/hook_installer.h"

namespace chimewell {

/// Codex: the one line `notify = […]` at the top level of ~/.codex/config.toml. Codex runs a single notify
/// program, so one that is not ours is never replaced, nor is a chain in which ours is called by another one.
class CodexHookInstaller final : public HookInstaller {
public:
    explicit CodexHookInstaller(Collaborators with);

private:
    Result<std::string> withHooks(const Content& content, const std::string& helper) const override;
    Result<Content> withoutHooks(const std::string& content) const override;
    Result<Findings> find(const std::string& content, const std::string& helper) const override;
};

}
