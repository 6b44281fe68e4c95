// SPDX-License-Identifier: MIT
#pragma once

#include "ports/agent_files.h"
#include "values/texts.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>

namespace chimewell::test {

/// A disk in memory, which can be told to fail. Above every file there are folders.
class MemoryFiles : public AgentFiles {
public:
    std::expected<std::string, FileError> read(const std::filesystem::path& file) override
    {
        ++reads;
        if (unreadable) return failure("Input/output error");
        const auto found = contents.find(file);
        if (found == contents.end()) return nothingAt(file);
        return found->second;
    }
    std::expected<void, FileError> replace(const std::filesystem::path& file,
                                           std::string_view content) override
    {
        ++writes;
        if (full) return failure("No space left on device");
        if (isFolder(file)) return failure("Is a directory");
        if (!isFolder(file.parent_path())) return failure("No such file or directory");
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
        if (present != expected && !isFolder(file))
            return std::unexpected(ExchangeError{.changed = true, .description = texts::changedByAnother});
        if (const auto replaced = replace(file, content); !replaced)
            return std::unexpected(
                ExchangeError{.changed = false, .description = replaced.error().description});
        return {};
    }
    std::expected<void, FileError> writeCopy(const std::filesystem::path& copy, std::string_view content,
                                             const std::filesystem::path& original) override
    {
        if (!contents.contains(original)) return nothingAt(original);
        return replace(copy, content);
    }
    std::expected<std::vector<std::string>, FileError> list(const std::filesystem::path& folder) override
    {
        if (!isFolder(folder)) return nothingAt(folder);
        std::set<std::string> names;
        const auto add = [&](std::filesystem::path path) {
            for (; path.has_relative_path(); path = path.parent_path())
                if (path.parent_path() == folder) names.insert(path.filename());
        };
        for (const auto& [path, content] : contents)
            add(path);
        std::ranges::for_each(folders, add);
        return std::vector(names.begin(), names.end());
    }
    std::expected<void, FileError> createFolders(const std::filesystem::path& folder) override
    {
        if (full) return failure("No space left on device");
        for (auto path = folder; path.has_relative_path(); path = path.parent_path())
            if (contents.contains(path)) return failure("Not a directory");
        folders.insert(folder);
        return {};
    }
    std::expected<void, FileError> remove(const std::filesystem::path& file) override
    {
        if (contents.erase(file) == 0) return nothingAt(file);
        return {};
    }
    std::optional<FileKind> kind(const std::filesystem::path& path) override
    {
        if (isFolder(path)) return FileKind::folder;
        return contents.contains(path) ? std::optional(FileKind::regular) : std::nullopt;
    }

    std::map<std::filesystem::path, std::string> contents;
    std::set<std::filesystem::path> folders;
    int reads = 0;
    int writes = 0;
    std::function<void()> beforeExchange; ///< The agent may use this moment to write.
    bool unreadable = false;
    bool full = false;

private:
    static std::unexpected<FileError> failure(std::string reason, bool missing = false)
    {
        return std::unexpected(FileError{.missing = missing, .description = std::move(reason)});
    }
    std::unexpected<FileError> nothingAt(const std::filesystem::path& path) const
    {
        if (isFolder(path)) return failure("Is a directory");
        for (auto above = path; above.has_relative_path(); above = above.parent_path())
            if (contents.contains(above)) return failure("Not a directory");
        return failure("No such file or directory", true);
    }
    bool isFolder(const std::filesystem::path& path) const
    {
        const auto isAbove = [&](const std::filesystem::path& other) {
            return path != other && std::ranges::mismatch(path, other).in1 == path.end();
        };
        return folders.contains(path) || std::ranges::any_of(folders, isAbove) ||
               std::ranges::any_of(contents, isAbove, [](const auto& file) { return file.first; });
    }
};

}
