// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/workspace/application_launcher.h"
#include "platform/linux/workspace/file_manager.h"
#include "platform/linux/workspace/path_inspector.h"
#include "ports/workspace.h"

#include <QDBusConnection>

#include <optional>
#include <string>

namespace chimewell {

class ActivationTokens;
class Files;
class XdgUserFolders;

/// Terminals and folders on a Linux desktop. Windows are found and brought forward where there is an X
/// display; elsewhere (Wayland) a program cannot see another's windows, so the terminal is launched
/// with the permission to come forward that the user's click gave us.
class LinuxWorkspace final : public Workspace {
public:
    /// What the workspace acts through; all references outlive it.
    struct Desktop {
        const XdgUserFolders& folders;
        Files& files;
        ActivationTokens& tokens;
        QDBusConnection bus;
        std::optional<std::string>
            xDisplay; ///< For example ":0"; nothing when the session is not an X session.
    };
    explicit LinuxWorkspace(Desktop desktop);

    bool isInstalled(const TerminalApplication& application) const override;
    void openActivating(const TerminalApplication& application) override;
    bool activateRunning(const TerminalApplication& application) override;
    void findKind(const std::filesystem::path& path, std::function<void(FileKind)> done) override;
    bool openFolder(const std::filesystem::path& folder) override;
    void reveal(const std::filesystem::path& path) override;

private:
    Desktop desktop_;
    ApplicationLauncher launcher_;
    PathInspector paths_;
    FileManager fileManager_;
};

}
