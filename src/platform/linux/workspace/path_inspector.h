// SPDX-License-Identifier: MIT
#pragma once

#include "ports/files.h"

#include <QObject>

#include <filesystem>
#include <functional>

namespace chimewell {

/// Asks what stands at a path without waiting for it: on a network mount whose server is gone, the call that
/// asks does not return. So a child process, stat(1), makes it, and is abandoned after a second.
class PathInspector {
public:
    /// `done` runs from the event loop; not at all when nothing stands there, when it cannot be told within a
    /// second, or when the inspector was destroyed before.
    void findKind(const std::filesystem::path& path, std::function<void(FileKind)> done);

private:
    QObject context_;
};

}
