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
    bool missing = false;    ///< Nothing stands at the path; every other reason leaves this false.
    Phrase description = {}; ///< The system's own sentence, or one of ours.
    bool operator==(const FileError&) const = default;
};

enum class FileKind { regular, folder, other };

/// The file system, whole files at a time.
class Files {
public:
    virtual ~Files() = default;
    /// The whole content. Fails for anything but a regular file, and for one that another program does not
    /// finish writing within some milliseconds.
    virtual std::expected<std::string, FileError> read(const std::filesystem::path& file) = 0;
    /// Afterwards the file is wholly `content`, or on failure wholly what it was. Leaves no other file.
    virtual std::expected<void, FileError> replace(const std::filesystem::path& file,
                                                   std::string_view content) = 0;
    /// Makes the folder and its missing parents; no error if it is there.
    virtual std::expected<void, FileError> createFolders(const std::filesystem::path& folder) = 0;
    virtual std::expected<void, FileError> remove(const std::filesystem::path& file) = 0;
    /// What stands at the path, links followed; nothing if nothing does or it cannot be asked.
    virtual std::optional<FileKind> kind(const std::filesystem::path& path) = 0;
};

}
