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

/// Why a file was not exchanged.
struct ExchangeError {
    bool changed = false; ///< The file is not what the caller took it for; it stays as it is.
    Phrase description = {};
};

/// Files that other programs own and may rewrite at any moment.
class AgentFiles : public Files {
public:
    /// Like `replace`, but only while the file holds exactly `expected`, or is not there if that is absent.
    /// What somebody else writes in the very moment of the exchange is noticed and kept.
    virtual std::expected<void, ExchangeError> exchange(const std::filesystem::path& file,
                                                        const std::optional<std::string>& expected,
                                                        std::string_view content) = 0;
    /// Like `replace`, with the mode and the owner of `original`, so that a copy is no more readable than
    /// that.
    virtual std::expected<void, FileError> writeCopy(const std::filesystem::path& copy,
                                                     std::string_view content,
                                                     const std::filesystem::path& original) = 0;
    /// The names of everything in the folder, in no order.
    virtual std::expected<std::vector<std::string>, FileError> list(const std::filesystem::path& folder) = 0;
};

}
