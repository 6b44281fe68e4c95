// SPDX-License-Identifier: MIT
#pragma once

#include "platform/posix/file_descriptor.h"

#include <filesystem>
#include <optional>
#include <utility>

namespace chimewell {

/// Tells the user's other programs that the application is running: holds a lock on the file "running" in its
/// folder while this object exists. The system releases it however the application ends. The helper only asks
/// whether the lock is held, so it never keeps an application from starting.
class RunningLock {
public:
    /// The folder has to exist. Absent when another process holds the lock, or the file cannot be made.
    static std::optional<RunningLock> take(const std::filesystem::path& folder);

private:
    explicit RunningLock(FileDescriptor file) : file_(std::move(file)) {}

    FileDescriptor file_;
};

}
