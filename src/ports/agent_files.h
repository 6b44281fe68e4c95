// SPDX-License-Identifier: MIT
#pragma once

#include "ports/files.h"

#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

/// Why `exchange` failed.
struct ExchangeError {
    bool changed = false; ///< The file doesn't hold what the caller expected. It was left as it is.
    Phrase description = {};
};

/// Files that belong to other programs, which may rewrite them at any moment.
class AgentFiles : public Files {
public:
    /// Like `replace`, but only if the file holds exactly `expected`, or doesn't exist if that is absent. A
    /// write by another program at the same moment is detected and kept.
    virtual std::expected<void, ExchangeError> exchange(const std::filesystem::path& file,
                                                        const std::optional<std::string>& expected,
                                                        std::string_view content) = 0;
    /// Like `replace`, with the mode and owner of `original`, so that nobody else can read the copy.
    virtual std::expected<void, FileError> writeCopy(const std::filesystem::path& copy,
                                                     std::string_view content,
                                                     const std::filesystem::path& original) = 0;
    /// The names of everything in the folder, in any order.
    virtual std::expected<std::vector<std::string>, FileError> list(const std::filesystem::path& folder) = 0;
};

}
