// SPDX-License-Identifier: MIT
#pragma once

#include "platform/posix/file_descriptor.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace chimewell {

/// A new file with a random name, readable by the user alone. It is removed with this object unless it took
/// another file's place. Every function that fails sets errno.
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
    /// Writes the content to the disk itself and closes the file.
    bool finish();
    /// Replaces `name`, whatever it is, in one step.
    bool rename(const std::string& name);
    /// Takes the name `name` only if it is free; EEXIST otherwise.
    bool renameToFree(const std::string& name);
    /// Swaps names with `name` in one step. This object then owns the file that had that name, and removes it
    /// at the end. First it takes a name that `removeAbandonedFiles` spares: if the process is killed before
    /// it has looked at the other file, that may be the only copy. ENOTSUP: the file system does not support
    /// this.
    bool swap(const std::string& name);
    /// Leaves the file where it is, for the user to find.
    void keep() { name_.clear(); }

private:
    TemporaryFile(int folder, FileDescriptor file, std::string name);

    int folder_;
    FileDescriptor file_;
    std::string name_; ///< Empty once it is not to be removed.
};

/// Removes the user's own temporary files that a killed process left behind. A file younger than a minute may
/// be in use and stays.
void removeAbandonedFiles(const std::filesystem::path& folder);

}
