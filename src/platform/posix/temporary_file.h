// SPDX-License-Identifier: MIT
#pragma once

#include "platform/posix/file_descriptor.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace chimewell {

/// A new file of ours with a random name, readable by the user alone, that disappears with this
/// object unless it took another's place. Every function that fails sets errno.
class TemporaryFile {
public:
    /// In the open folder, which must outlive the result.
    static std::optional<TemporaryFile> create(int folder);
    TemporaryFile(TemporaryFile&& other) noexcept;
    TemporaryFile& operator=(TemporaryFile&&) = delete;
    ~TemporaryFile();

    int descriptor() const { return file_.get(); }
    const std::string& name() const { return name_; }
    /// All of it, however many calls that takes.
    bool write(std::string_view content);
    /// Brings the content to the disk and closes the file.
    bool finish();
    /// Puts the file in the place of `name`, whatever stands there, in one step.
    bool rename(const std::string& name);
    /// Takes the place of `name` only if nothing stands there; EEXIST otherwise.
    bool renameToFree(const std::string& name);
    /// Trades places with `name` in one step: then this object holds what stood there, and removes it in the
    /// end. Before, it takes a name that `removeAbandonedFiles` spares: if the process dies before it has
    /// looked at what stood there, that may be the only copy. ENOTSUP where the file system cannot.
    bool swap(const std::string& name);
    /// Leaves the file where it is, for somebody to find.
    void keep() { name_.clear(); }

private:
    TemporaryFile(int folder, FileDescriptor file, std::string name);

    int folder_;
    FileDescriptor file_;
    std::string name_; ///< Empty once it is no longer ours to remove.
};

/// Removes the user's own temporary files that a process left behind when it was killed; none that is younger
/// than a minute, which may be in use.
void removeAbandonedFiles(const std::filesystem::path& folder);

}
