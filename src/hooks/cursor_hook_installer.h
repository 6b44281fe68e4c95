// SPDX-License-Identifier: MIT
#pragma once

#include "hooks/json_hook_installer.h"

namespace chimewell {

/// Cursor: entries under "hooks" in ~/.cursor/hooks.json.
class CursorHookInstaller final : public JSONHookInstaller {
public:
    explicit CursorHookInstaller(Collaborators with);

private:
    JSONValue entry(const std::string& command) const override;
    std::vector<std::string> commands(const JSONValue& entry) const override;
    JSONValue completed(JSONValue settings) const override;
};

}
