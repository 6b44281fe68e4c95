// SPDX-License-Identifier: MIT
#pragma once

#include "ports/files.h"

#include <map>
#include <set>

namespace chimewell::test {

/// A disk in memory, which can be told to fail.
class MemoryFiles : public Files {
public:
    std::expected<std::string, FileError> read(const std::filesystem::path& file) override
    {
        if (unreadable) return std::unexpected(FileError{.description = "Input/output error"});
        const auto found = contents.find(file);
        if (found == contents.end())
            return std::unexpected(FileError{.missing = true, .description = "No such file or directory"});
        return found->second;
    }
    std::expected<void, FileError> replace(const std::filesystem::path& file,
                                           std::string_view content) override
    {
        ++writes;
        if (full) return std::unexpected(FileError{.description = "No space left on device"});
        contents.insert_or_assign(file, std::string(content));
        return {};
    }
    std::expected<void, FileError> createFolders(const std::filesystem::path& folder) override
    {
        if (full) return std::unexpected(FileError{.description = "No space left on device"});
        folders.insert(folder);
        return {};
    }
    std::expected<void, FileError> remove(const std::filesystem::path& file) override
    {
        if (contents.erase(file) == 0)
            return std::unexpected(FileError{.missing = true, .description = "No such file or directory"});
        return {};
    }
    std::optional<FileKind> kind(const std::filesystem::path& path) override
    {
        if (folders.contains(path)) return FileKind::folder;
        if (contents.contains(path)) return FileKind::regular;
        return std::nullopt;
    }

    std::map<std::filesystem::path, std::string> contents;
    std::set<std::filesystem::path> folders;
    int writes = 0;
    bool unreadable = false;
    bool full = false;
};

}
