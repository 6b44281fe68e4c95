// SPDX-License-Identifier: MIT
#pragma once

#include "hooks/hook_installer.h"

namespace chimewell {

/// Codex: the one line `notify = […]` at the top level of ~/.codex/config.toml. Codex runs a single notify
/// program, so another program is never replaced, nor is a chain of the user's own that calls our helper.
class CodexHookInstaller final : public HookInstaller {
public:
    explicit CodexHookInstaller(Collaborators with);

private:
    Result<Content> withHooks(const Content& content, const std::string& helper) const override;
    Result<Content> withoutHooks(const std::string& content) const override;
    Result<Findings> find(const std::string& content, const std::string& helper) const override;
};

}
