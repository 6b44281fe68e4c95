// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/linux_workspace.h"

#include "platform/linux/freedesktop/activation_tokens.h"
#include "platform/linux/freedesktop/desktop_entries.h"
#include "platform/linux/workspace/x11_windows.h"
#include "platform/posix/xdg_user_folders.h"
#include "ports/files.h"

#include <utility>

namespace chimewell {

LinuxWorkspace::LinuxWorkspace(Desktop desktop)
    : desktop_(std::move(desktop)),
      launcher_(desktop_.bus, desktop_.folders.home()),
      fileManager_(desktop_.bus, desktop_.folders.home(), paths_)
{
}

bool LinuxWorkspace::isInstalled(const TerminalApplication& application) const
{
    return findDesktopEntry(application.desktopId, desktop_.folders, desktop_.files).has_value();
}

void LinuxWorkspace::openActivating(const TerminalApplication& application)
{
    const std::string token = desktop_.tokens.take(); // spent with this click, used or not
    if (activateRunning(application)) return;
    const auto entry = findDesktopEntry(application.desktopId, desktop_.folders, desktop_.files);
    if (entry) launcher_.launch(*entry, token);
}

bool LinuxWorkspace::activateRunning(const TerminalApplication& application)
{
    return desktop_.xDisplay && activateNewestWindow(*desktop_.xDisplay, application.windowClasses);
}

void LinuxWorkspace::findKind(const std::filesystem::path& path, std::function<void(FileKind)> done)
{
    paths_.findKind(path, std::move(done));
}

bool LinuxWorkspace::openFolder(const std::filesystem::path& folder)
{
    return fileManager_.openFolder(folder, desktop_.tokens.take());
}

void LinuxWorkspace::reveal(const std::filesystem::path& path)
{
    fileManager_.reveal(path, desktop_.tokens.take());
}

}
