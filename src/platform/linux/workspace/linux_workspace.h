// SPDX-License-Identifier: MIT
#pragma once

#include "ports/workspace.h"

#include <QDBusConnection>
#include <QObject>
#include <QString>

#include <filesystem>
#include <optional>
#include <string>

namespace chimewell {

class ActivationTokens;
class Files;
struct InstalledEntry;
class XdgUserFolders;

/// Terminals and folders on a Linux desktop. Where there is an X display, windows are found and brought
/// forward. On Wayland a program cannot see another's windows, so the terminal is launched with the
/// activation token of the user's click.
///
/// Folders are shown by the desktop's file manager (org.freedesktop.FileManager1), or where there is none, by
/// the program that the user chose for them.
class LinuxWorkspace final : public Workspace {
public:
    /// All references outlive the workspace.
    struct Desktop {
        const XdgUserFolders& folders;
        Files& files;
        ActivationTokens& tokens;
        QDBusConnection bus;
        std::optional<std::string> xDisplay; ///< For example ":0". Absent without an X session.
    };
    explicit LinuxWorkspace(Desktop desktop);

    bool isInstalled(const TerminalApplication& application) const override;
    void openActivating(const TerminalApplication& application) override;
    bool activateRunning(const TerminalApplication& application) override;
    void findKind(const std::filesystem::path& path, std::function<void(FileKind)> done) override;
    /// `folder` is known to be a folder.
    bool openFolder(const std::filesystem::path& folder) override;
    void reveal(const std::filesystem::path& path) override;

private:
    void launch(const InstalledEntry& application, const std::string& activationToken);
    void runCommand(const InstalledEntry& application, const std::string& activationToken) const;
    /// Calls `method` of the file manager with `path`, and opens `folder` when that is refused.
    void show(const QString& method, const std::filesystem::path& path, const std::filesystem::path& folder);

    Desktop desktop_;
    QObject context_; ///< Of the answers that are waited for.
};

}
