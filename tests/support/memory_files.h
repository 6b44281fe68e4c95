// SPDX-License-Identifier: MIT
#pragma once

#include "ports/agent_files.h"
#include "values/texts.h"

#include <algorithm>
#include <map>
#include <set>

namespace chimewell::test {

/// A disk in memory, which can be told to fail. Above every file there are folders.
class MemoryFiles : public AgentFiles {
public:
    using Path = std::filesystem::path;
    template<class T>
    using Result = std::expected<T, FileError>;

    Result<std::string> read(const Path& file) override
    {
        if (unreadable) return failure("Input/output error");
        const auto found = contents.find(file);
        if (found == contents.end()) return nothingAt(file);
        return found->second;
    }
    Result<void> replace(const Path& file, std::string_view content) override
    {
        ++writes;
        if (full) return failure("No space left on device");
        if (isFolder(file)) return failure("Is a directory");
        if (!isFolder(file.parent_path())) return failure("No such file or directory");
        contents.insert_or_assign(file, std::string(content));
        return {};
    }
    std::expected<void, ExchangeError> exchange(const Path& file, const std::optional<std::string>& expected,
                                                std::string_view content) override
    {
        const auto found = contents.find(file);
        const auto present = found == contents.end() ? std::nullopt : std::optional(found->second);
        if (present != expected && !isFolder(file))
            return std::unexpected(ExchangeError{.changed = true, .description = texts::changedByAnother});
        if (const auto replaced = replace(file, content); !replaced)
            return std::unexpected(
                ExchangeError{.changed = false, .description = replaced.error().description});
        return {};
    }
    Result<void> writeCopy(const Path& copy, std::string_view content, const Path& original) override
    {
        if (!contents.contains(original)) return nothingAt(original);
        return replace(copy, content);
    }
    Result<std::vector<std::string>> list(const Path& folder) override
    {
        if (!isFolder(folder)) return nothingAt(folder);
        std::vector<std::string> names;
        for (const auto& path : paths())
            if (path.parent_path() == folder) names.push_back(path.filename());
        return names;
    }
    Result<void> createFolders(const Path& folder) override
    {
        if (full) return failure("No space left on device");
        for (auto path = folder; path.has_relative_path(); path = path.parent_path())
            if (contents.contains(path)) return failure("Not a directory");
        folders.insert(folder);
        return {};
    }
    Result<void> remove(const Path& file) override
    {
        if (contents.erase(file) == 0) return nothingAt(file);
        return {};
    }
    std::optional<FileKind> kind(const Path& path) override
    {
        if (isFolder(path)) return FileKind::folder;
        return contents.contains(path) ? std::optional(FileKind::regular) : std::nullopt;
    }

    std::map<Path, std::string> contents;
    std::set<Path> folders;
    int writes = 0;
    bool unreadable = false;
    bool full = false;

private:
    static std::unexpected<FileError> failure(std::string reason, bool missing = false)
    {
        return std::unexpected(FileError{.missing = missing, .description = std::move(reason)});
    }
    std::unexpected<FileError> nothingAt(const Path& path) const
    {
        if (isFolder(path)) return failure("Is a directory");
        for (auto above = path; above.has_relative_path(); above = above.parent_path())
            if (contents.contains(above)) return failure("Not a directory");
        return failure("No such file or directory", true);
    }
    bool isFolder(const Path& path) const { return paths().contains(path) && !contents.contains(path); }
    /// Of everything that is there, with the folders above it.
    std::set<Path> paths() const
    {
        std::set<Path> all;
        const auto add = [&](Path path) {
            for (; path.has_relative_path(); path = path.parent_path())
                all.insert(path);
        };
        std::ranges::for_each(contents, add, &decltype(contents)::value_type::first);
        std::ranges::for_each(folders, add);
        return all;
    }
};

}
