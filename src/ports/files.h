// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"

#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace chimewell {

/// Why a file operation failed.
struct FileError {
    bool missing = false;    ///< Nothing exists at the path. False for every other reason.
    Phrase description = {}; ///< The system's error text, or one of ours.
    bool operator==(const FileError&) const = default;
};

enum class FileKind { regular, folder, other };

/// The file system, whole files at a time.
class Files {
public:
    virtual ~Files() = default;
    /// The whole content. Fails for anything but a regular file, and for a file that another program has been
    /// writing for some milliseconds.
    virtual std::expected<std::string, FileError> read(const std::filesystem::path& file) = 0;
    /// Atomic: the file then holds `content`, or on failure what it held before. Leaves no other file behind.
    virtual std::expected<void, FileError> replace(const std::filesystem::path& file,
                                                   std::string_view content) = 0;
    /// Creates the folder and its missing parents. No error if it exists.
    virtual std::expected<void, FileError> createFolders(const std::filesystem::path& folder) = 0;
    virtual std::expected<void, FileError> remove(const std::filesystem::path& file) = 0;
    /// What exists at the path, links followed; absent if nothing does or it can't be determined.
    virtual std::optional<FileKind> kind(const std::filesystem::path& path) = 0;
};

}
