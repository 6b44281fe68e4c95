// SPDX-License-Identifier: MIT
#pragma once

#include "ports/agent_files.h"

#include <cstddef>

namespace chimewell {

/// `Files` by the system's own calls. A replaced file keeps its mode, owner, access control list and
/// extended attributes; a new file is readable by the user alone. A symbolic link stays a link and
/// its final target is replaced, or made where there is none.
class PosixFiles final : public AgentFiles {
public:
    /// Nothing we read is near this size; more is refused rather than loaded.
    static constexpr std::size_t maximumSize = std::size_t{64} * 1024 * 1024;

    std::expected<std::string, FileError> read(const std::filesystem::path& file) override;
    std::expected<void, FileError> replace(const std::filesystem::path& file,
                                           std::string_view content) override;
    std::expected<void, ExchangeError> exchange(const std::filesystem::path& file,
                                                const std::optional<std::string>& expected,
                                                std::string_view content) override;
    std::expected<void, FileError> writeCopy(const std::filesystem::path& copy, std::string_view content,
                                             const std::filesystem::path& original) override;
    std::expected<std::vector<std::string>, FileError> list(const std::filesystem::path& folder) override;
    std::expected<void, FileError> createFolders(const std::filesystem::path& folder) override;
    std::expected<void, FileError> remove(const std::filesystem::path& file) override;
    std::optional<FileKind> kind(const std::filesystem::path& path) override;
};

}
