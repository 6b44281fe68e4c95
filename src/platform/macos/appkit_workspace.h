// SPDX-License-Identifier: MIT
#pragma once

#include "ports/workspace.h"

namespace chimewell {

/// Applications by their bundle identifiers, and the Finder, by NSWorkspace.
class AppKitWorkspace final : public Workspace {
public:
    bool isInstalled(const TerminalApplication& application) const override;
    void openActivating(const TerminalApplication& application) override;
    bool activateRunning(const TerminalApplication& application) override;
    void findKind(const std::filesystem::path& path, std::function<void(FileKind)> done) override;
    bool openFolder(const std::filesystem::path& folder) override;
    void reveal(const std::filesystem::path& path) override;
};

}
