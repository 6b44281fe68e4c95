// SPDX-License-Identifier: MIT
#pragma once

#include "ports/files.h"
#include "values/terminal_application.h"

#include <filesystem>
#include <functional>

namespace chimewell {

/// The desktop's applications, windows and file manager. No call waits until something has opened.
class Workspace {
public:
    virtual ~Workspace() = default;
    virtual bool isInstalled(const TerminalApplication& application) const = 0;
    /// Activates the application's window. Starts the application if it isn't running.
    virtual void openActivating(const TerminalApplication& application) = 0;
    /// Activates a window of the running application. False if it isn't running.
    virtual bool activateRunning(const TerminalApplication& application) = 0;
    /// Finds out what exists at the path, links followed. A folder that the system opens like a file (a
    /// package) is `other`. Because the path may be on a server that doesn't answer, `done` is called later,
    /// from the event loop. It isn't called if nothing exists there or after a second without an answer.
    virtual void findKind(const std::filesystem::path& path, std::function<void(FileKind)> done) = 0;
    /// Opens the folder in the file manager. False if there is none.
    virtual bool openFolder(const std::filesystem::path& folder) = 0;
    /// Shows the file or folder selected in the file manager.
    virtual void reveal(const std::filesystem::path& path) = 0;
};

}
