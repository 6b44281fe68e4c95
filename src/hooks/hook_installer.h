// SPDX-License-Identifier: MIT
#pragma once

#include "hooks/hook_change.h"
#include "hooks/hook_install_status.h"
#include "hooks/hook_installer_error.h"
#include "hooks/hook_look.h"
#include "ports/agent_files.h"
#include "ports/clock.h"
#include "ports/resources.h"
#include "ports/user_folders.h"
#include "values/app_settings.h"

#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

/// Adds our hook entries to one agent's configuration file and takes them out again. Everything else in the
/// file stays as it was, and in its order. A file that cannot be understood is never written; before each
/// change the file's bytes are put into a backup beside it; a write leaves the file wholly old or wholly new.
/// When the agent rewrites its file meanwhile, the change is made anew on what the agent wrote.
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
    /// The status with what is to be offered, by one reading of the file.
    HookLook look(const ProviderInstallState& record) const;
    /// Also brings the entries of an older build up to date.
    Result<ProviderInstallState> install();
    Result<ProviderInstallState> uninstall();
    /// Puts the oldest backup in the file's place, whatever it holds.
    Result<ProviderInstallState> restore();

    /// What `install` or `uninstall` would change now.
    Result<std::vector<HookChange>> changesByInstall() const;
    Result<std::vector<HookChange>> changesByUninstall() const;

protected:
    /// The file's content; absent where there is no file.
    using Content = std::optional<std::string>;

    /// What a file holds of ours.
    struct Findings {
        std::vector<std::string> entries = {}; ///< In the order of the file.
        bool callOtherHelper = false;          ///< An entry that an install replaces does.
        bool lackReminderHooks = false;
        bool isUsersChain = false; ///< Then there are no entries.
    };

    /// `content` with our entries for this helper, and without older ones.
    virtual Result<std::string> withHooks(const Content& content, const std::string& helper) const = 0;
    /// `content` without our entries; nothing when there are none.
    virtual Result<Content> withoutHooks(const std::string& content) const = 0;
    /// `helper` is the one that an install would write.
    virtual Result<Findings> find(const std::string& content, const std::string& helper) const = 0;

    HookInstallerError unparseable() const;

private:
    HookLook lookAtFile(const ProviderInstallState& record) const;
    bool offersRestore() const;
    Result<std::string> helper() const;
    Result<Content> read() const;
    std::expected<void, ExchangeError> write(const Content& before, const std::string& after);
    Result<std::optional<std::string>> backUp(const Content& content);
    Result<std::vector<HookChange>> changes(const Content& before, const Content& after) const;
    ProviderInstallState state() const;

    Collaborators with_;
    Description description_;
    std::filesystem::path file_;
};

}
