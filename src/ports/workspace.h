// SPDX-License-Identifier: MIT
#pragma once

#include "ports/files.h"
#include "values/terminal_application.h"

#include <filesystem>
#include <functional>

namespace chimewell {

/// The desktop's applications, windows and file manager. Opening is asked for, never awaited.
class Workspace {
public:
    virtual ~Workspace() = default;
    virtual bool isInstalled(const TerminalApplication& application) const = 0;
    /// Brings the application's window forward, starting the application if it is not running.
    virtual void openActivating(const TerminalApplication& application) = 0;
    /// Brings a window of the running application forward; false when none is running.
    virtual bool activateRunning(const TerminalApplication& application) = 0;
    /// What stands at the path, links followed; a folder that the system opens like a file (a package) is
    /// `other`. The path may be on a server that does not answer, so `done` runs later, from the event loop,
    /// and not at all when nothing stands there or a second has passed.
    virtual void findKind(const std::filesystem::path& path, std::function<void(FileKind)> done) = 0;
    /// Shows a window of the folder in the file manager; false when no file manager is known.
    virtual bool openFolder(const std::filesystem::path& folder) = 0;
    /// Shows the file or folder selected within its parent.
    virtual void reveal(const std::filesystem::path& path) = 0;
};

}
