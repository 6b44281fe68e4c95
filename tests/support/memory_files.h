// SPDX-License-Identifier: MIT
#pragma once

#include "ports/agent_files.h"

#include <functional>
#include <map>
#include <set>

namespace chimewell::test {

/// A disk in memory, which can be told to fail.
class MemoryFiles : public AgentFiles {
public:
    std::expected<std::string, FileError> read(const std::filesystem::path& file) override
    {
        ++reads;
        if (unreadable) return std::unexpected(FileError{.description = std::string("Input/output error")});
        const auto found = contents.find(file);
        if (found == contents.end())
            return std::unexpected(
                FileError{.missing = true, .description = std::string("No such file or directory")});
        return found->second;
    }
    std::expected<void, FileError> replace(const std::filesystem::path& file,
                                           std::string_view content) override
    {
        ++writes;
        if (full) return std::unexpected(FileError{.description = std::string("No space left on device")});
        contents.insert_or_assign(file, std::string(content));
        return {};
    }
    std::expected<void, ExchangeError> exchange(const std::filesystem::path& file,
                                                const std::optional<std::string>& expected,
                                                std::string_view content) override
    {
        if (beforeExchange) beforeExchange();
        const auto found = contents.find(file);
        const auto present = found == contents.end() ? std::nullopt : std::optional(found->second);
        if (present != expected)
            return std::unexpected(
                ExchangeError{.changed = true, .description = std::string("Somebody else changed it")});
        if (const auto replaced = replace(file, content); !replaced)
            return std::unexpected(
                ExchangeError{.changed = false, .description = replaced.error().description});
        return {};
    }
    std::expected<void, FileError> writeCopy(const std::filesystem::path& copy, std::string_view content,
                                             const std::filesystem::path&) override
    {
        return replace(copy, content);
    }
    std::expected<std::vector<std::string>, FileError> list(const std::filesystem::path& folder) override
    {
        std::vector<std::string> names;
        for (const auto& [path, content] : contents)
            if (path.parent_path() == folder) names.push_back(path.filename());
        return names;
    }
    std::expected<void, FileError> createFolders(const std::filesystem::path& folder) override
    {
        if (full) return std::unexpected(FileError{.description = std::string("No space left on device")});
        folders.insert(folder);
        return {};
    }
    std::expected<void, FileError> remove(const std::filesystem::path& file) override
    {
        if (contents.erase(file) == 0)
            return std::unexpected(
                FileError{.missing = true, .description = std::string("No such file or directory")});
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
    int reads = 0;
    int writes = 0;
    std::function<void()> beforeExchange; ///< The agent may use this moment to write.
    bool unreadable = false;
    bool full = false;
};

}
