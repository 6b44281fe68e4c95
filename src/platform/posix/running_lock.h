// SPDX-License-Identifier: MIT
#pragma once

#include "platform/posix/file_descriptor.h"

#include <filesystem>
#include <optional>
#include <utility>

namespace chimewell {

/// Shows other programs of the user that the application runs: it holds a lock on the file "running" in its
/// folder for as long as this object lives, and the system lets go of it however the application ends. The
/// helper asks for the lock without taking it, and so is never in the way of an application that starts.
class RunningLock {
public:
    /// The folder has to be there. Nothing when another process holds the lock, or the file cannot be made.
    static std::optional<RunningLock> take(const std::filesystem::path& folder);

private:
    explicit RunningLock(FileDescriptor file) : file_(std::move(file)) {}

    FileDescriptor file_;
};

}
