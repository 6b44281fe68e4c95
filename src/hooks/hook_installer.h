// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"
#include "ports/agent_files.h"
#include "ports/clock.h"
#include "ports/resources.h"
#include "ports/user_folders.h"
#include "values/app_settings.h"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

/// What an agent's file says about our hooks, whatever the settings recorded.
struct HookInstallStatus {
    enum class Kind : std::uint8_t {
        installed,
        error,        ///< The file could not be read or parsed.
        notInstalled, ///< No file, or none of our entries in it.
        comingSoon,   ///< The integration is not offered.
    };

    Kind kind = Kind::notInstalled;
    Phrase message = {}; ///< Of an error; empty otherwise.
    bool operator==(const HookInstallStatus&) const = default;
};

/// Why an agent's file was left as it is.
struct HookInstallerError {
    enum class Kind : std::uint8_t { settingsUnparseable, ioError, helperMissing, noBackup };

    Kind kind = Kind::ioError;
    Phrase detail = {}; ///< The file's path, or the whole message where the kind does not imply it.
    bool operator==(const HookInstallerError&) const = default;

    /// The sentence that the user reads.
    Phrase description() const;
};

/// One entry that an install or uninstall would add to an agent's file or remove from it.
struct HookChange {
    enum class Kind : std::uint8_t { removed, added };

    Kind kind = Kind::added;
    std::string entry; ///< The lines of the file, as if the entry were alone in its event's array.
    bool operator==(const HookChange&) const = default;
};

/// Why the user should install again.
enum class HookUpdate : std::uint8_t {
    otherHelper,   ///< An entry runs a helper at another path than ours; it may no longer exist.
    reminderHooks, ///< The entries that end the reminders are missing.
    olderVersion,  ///< An older build wrote the entries.
};

/// What an agent's file and its backups say about our hooks.
struct HookLook {
    HookInstallStatus status = {};
    std::optional<HookUpdate> update = std::nullopt;
    /// The user's own notify program calls our helper; that setting is not ours to change.
    bool isUsersChain = false;
    /// The oldest backup was made before our first change.
    bool offersRestore = false;
    std::size_t fingerprint = 0; ///< Of the file's content.
};

/// Adds our hook entries to one agent's configuration file and removes them. Everything else in the file
/// keeps its content and order. A file that cannot be parsed is never written; before each change its bytes
/// are saved to a backup beside it; after a write the file is either wholly old or wholly new. When the agent
/// rewrites its file at the same time, the change is made again on what the agent wrote.
class HookInstaller {
public:
    struct Collaborators {
        AgentFiles& files;
        const Clock& clock;
        const UserFolders& folders;
        const Resources& resources;
    };
    struct Description {
        std::string_view providerId;
        std::string_view displayName;
        std::string_view settingsFile; ///< Below the home folder.
        bool isBeta = false;
        std::int64_t hookVersion = 1; ///< Of the entries that this build writes.
    };
    template<class T>
    using Result = std::expected<T, HookInstallerError>;

    HookInstaller(Collaborators with, Description description);
    virtual ~HookInstaller() = default;

    std::string_view providerId() const { return description_.providerId; }
    std::string_view displayName() const { return description_.displayName; }
    bool isAvailable() const { return true; }
    bool isBeta() const { return description_.isBeta; }
    std::int64_t hookVersion() const { return description_.hookVersion; }
    const std::filesystem::path& settingsFileURL() const { return file_; }
    std::string_view settingsFileInHome() const { return description_.settingsFile; }

    /// Used instead of the helper among the application's resources, while set.
    std::optional<std::filesystem::path> helperPathOverride;

    HookInstallStatus status() const;
    /// The status and what to offer the user. Reads and parses the file once.
    HookLook look(const ProviderInstallState& record) const;
    /// Also brings the entries of an older build up to date.
    Result<ProviderInstallState> install();
    Result<ProviderInstallState> uninstall();
    /// Replaces the file by the oldest backup, whatever it contains.
    Result<ProviderInstallState> restore();

    /// What `install` or `uninstall` would change now.
    Result<std::vector<HookChange>> changesByInstall() const;
    Result<std::vector<HookChange>> changesByUninstall() const;

protected:
    using Error = std::unexpected<HookInstallerError>;
    /// The content of a file; absent where there is no file.
    using Content = std::optional<std::string>;

    /// Our entries in a file.
    struct Findings {
        std::vector<std::string> entries = {}; ///< In the order of the file.
        bool callOtherHelper = false;          ///< At least one that an install would replace.
        bool lackReminderHooks = false;
        bool isUsersChain = false; ///< Then there are no entries.
    };

    /// `content` with our entries for this helper and without older ones. Never absent.
    virtual Result<Content> withHooks(const Content& content, const std::string& helper) const = 0;
    /// `content` without our entries; absent when it has none.
    virtual Result<Content> withoutHooks(const std::string& content) const = 0;
    /// `helper` is the one that an install would write.
    virtual Result<Findings> find(const std::string& content, const std::string& helper) const = 0;

    static Error ioError(Phrase message);
    Error unreadable(const Phrase& reason) const;
    Error unparseable() const;

private:
    /// The new content for a file's present one; absent where nothing has to change.
    using Edit = std::function<Result<Content>(const Content&)>;
    Edit installing(const std::string& helper) const;
    Edit uninstalling() const;

    HookLook lookAtFile(const ProviderInstallState& record) const;
    bool offersRestore() const;
    Result<std::string> helper() const;
    Result<Content> read() const;
    /// Backs the file up and writes it; the backup's path, if one was made.
    Result<std::optional<std::string>> change(const Edit& edit);
    std::expected<void, ExchangeError> write(const Content& before, const std::string& after);
    Result<std::optional<std::string>> backUp(const Content& content);
    Result<std::vector<HookChange>> changesBy(const Edit& edit) const;
    ProviderInstallState state() const;

    Collaborators with_;
    Description description_;
    std::filesystem::path file_;
};

}
