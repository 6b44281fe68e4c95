// SPDX-License-Identifier: MIT
#pragma once

#include "ports/workspace.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace chimewell::test {

/// Remembers what was asked of the desktop, as "open kitty", "folder /x", "reveal /x".
class RecordingWorkspace : public Workspace {
public:
    bool isInstalled(const TerminalApplication& application) const override
    {
        return installed.contains(application.bundleIdentifier);
    }
    void openActivating(const TerminalApplication& application) override
    {
        asked.push_back("open " + std::string(application.bundleIdentifier));
    }
    bool activateRunning(const TerminalApplication& application) override
    {
        asked.push_back("activate " + std::string(application.bundleIdentifier));
        return running.contains(application.bundleIdentifier);
    }
    void findKind(const std::filesystem::path& path, std::function<void(FileKind)> done) override
    {
        // A system reads a path up to its first NUL.
        if (const auto found = paths.find(path.c_str()); found != paths.end()) done(found->second);
    }
    bool openFolder(const std::filesystem::path& folder) override
    {
        if (!fileManager) return false;
        asked.push_back("folder " + folder.string());
        return true;
    }
    void reveal(const std::filesystem::path& path) override { asked.push_back("reveal " + path.string()); }

    std::set<std::string_view> installed;
    std::set<std::string_view> running;
    std::map<std::filesystem::path, FileKind> paths;
    bool fileManager = true;
    std::vector<std::string> asked;
};

}
