// SPDX-License-Identifier: MIT
#include "hooks/hook_installer.h"

#include "base/iso8601.h"
#include "hooks/command_line.h"
#include "values/texts.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace chimewell {

namespace {

using Kind = HookInstallerError::Kind;

/// How often a change is made anew on a file that the agent rewrote meanwhile.
constexpr int maxAttempts = 5;

constexpr std::string_view backupInfix = ".chimewell-backup-";

std::unexpected<HookInstallerError> ioError(Phrase message)
{
    return std::unexpected(HookInstallerError{Kind::ioError, std::move(message)});
}

std::string backupPrefix(const std::filesystem::path& file)
{
    return file.filename().string() + std::string(backupInfix);
}

/// Nothing where there is none.
std::expected<std::optional<std::filesystem::path>, FileError> oldestBackup(AgentFiles& files,
                                                                            const std::filesystem::path& file)
{
    const auto names = files.list(file.parent_path());
    if (!names && !names.error().missing) return std::unexpected(names.error());
    std::optional<std::string> oldest;
    for (const std::string& name : names.value_or(std::vector<std::string>()))
        if (name.starts_with(backupPrefix(file)) && (!oldest || name < *oldest)) oldest = name;
    if (!oldest) return std::nullopt;
    return file.parent_path() / *oldest;
}

}

HookInstaller::HookInstaller(Collaborators with, Description description)
    : with_(with),
      description_(description),
      file_(with.folders.home() / description.settingsFile)
{
}

HookInstallStatus HookInstaller::status() const
{
    return lookAtFile(state()).status;
}

HookLook HookInstaller::look(const ProviderInstallState& record) const
{
    HookLook look = lookAtFile(record);
    look.offersRestore = offersRestore();
    return look;
}

HookInstaller::Result<ProviderInstallState> HookInstaller::install()
{
    const auto path = helper();
    if (!path) return std::unexpected(path.error());
    for (int attempt = 1;; ++attempt) {
        const auto before = read();
        if (!before) return std::unexpected(before.error());
        const auto after = withHooks(*before, *path);
        if (!after) return std::unexpected(after.error());
        const auto backup = backUp(*before);
        if (!backup) return std::unexpected(backup.error());
        const auto written = write(*before, *after);
        if (!written && written.error().changed && attempt < maxAttempts) continue;
        if (!written) return ioError({texts::couldNotWrite, {file_.string(), written.error().description}});

        ProviderInstallState installed = state();
        installed.installed = true;
        installed.installedAt = with_.clock.now();
        installed.settingsPath = file_.string();
        installed.backupPath = *backup;
        installed.hookVersion = hookVersion();
        return installed;
    }
}

HookInstaller::Result<ProviderInstallState> HookInstaller::uninstall()
{
    for (int attempt = 1;; ++attempt) {
        const auto file = read();
        if (!file) return std::unexpected(file.error());
        const Content& before = *file;
        if (!before) return state();
        const auto edited = withoutHooks(*before);
        if (!edited) return std::unexpected(edited.error());
        const Content& after = *edited;
        if (!after) return state();
        const auto backup = backUp(before);
        if (!backup) return std::unexpected(backup.error());
        const auto written = write(before, *after);
        if (!written && written.error().changed && attempt < maxAttempts) continue;
        if (!written) return ioError({texts::couldNotWrite, {file_.string(), written.error().description}});
        return state();
    }
}

HookInstaller::Result<ProviderInstallState> HookInstaller::restore()
{
    const auto failed = [](const FileError& error) {
        return ioError({texts::couldNotRestore, {error.description}});
    };
    const auto oldest = oldestBackup(with_.files, file_);
    if (!oldest) return failed(oldest.error());
    const std::optional<std::filesystem::path>& backup = *oldest;
    if (!backup) return std::unexpected(HookInstallerError{Kind::noBackup});
    const auto content = with_.files.read(*backup);
    if (!content) return failed(content.error());
    if (const auto replaced = with_.files.replace(file_, *content); !replaced)
        return failed(replaced.error());
    return state();
}

bool HookInstaller::offersRestore() const
{
    const auto oldest = oldestBackup(with_.files, file_).value_or(std::nullopt);
    if (!oldest) return false;
    // One that cannot be understood holds nothing of ours that we know; to try tells what is wrong with it.
    const auto content = with_.files.read(*oldest);
    const auto found = content ? find(*content, "") : Findings();
    return !found || found->entries.empty();
}

HookInstaller::Result<std::vector<HookChange>> HookInstaller::changesByInstall() const
{
    const auto path = helper();
    if (!path) return std::unexpected(path.error());
    const auto before = read();
    if (!before) return std::unexpected(before.error());
    const auto after = withHooks(*before, *path);
    if (!after) return std::unexpected(after.error());
    return changes(*before, *after);
}

HookInstaller::Result<std::vector<HookChange>> HookInstaller::changesByUninstall() const
{
    const auto file = read();
    if (!file) return std::unexpected(file.error());
    const Content& before = *file;
    if (!before) return std::vector<HookChange>();
    const auto after = withoutHooks(*before);
    if (!after) return std::unexpected(after.error());
    return changes(before, after->has_value() ? *after : before);
}

HookLook HookInstaller::lookAtFile(const ProviderInstallState& record) const
{
    using Status = HookInstallStatus::Kind;
    if (!isAvailable()) return {.status = {.kind = Status::comingSoon}};
    const auto file = read();
    if (!file) return {.status = {.kind = Status::error, .message = file.error().description()}};
    const Content& content = *file;
    HookLook look{.fingerprint = std::hash<Content>()(content)};
    if (!content) return look;

    const auto ourHelper = helper();
    const auto found = find(*content, ourHelper.value_or(""));
    if (!found) {
        look.status = {.kind = Status::error, .message = found.error().description()};
        return look;
    }
    look.isUsersChain = found->isUsersChain;
    if (found->entries.empty() && !found->isUsersChain) return look;
    look.status.kind = Status::installed;
    if (found->isUsersChain || !ourHelper) return look; // an update could not be made
    if (found->callOtherHelper)
        look.update = HookUpdate::otherHelper;
    else if (found->lackReminderHooks)
        look.update = HookUpdate::reminderHooks;
    else if (record.hookVersion < hookVersion())
        look.update = HookUpdate::olderVersion;
    return look;
}

HookInstallerError HookInstaller::unparseable() const
{
    return {.kind = Kind::settingsUnparseable, .detail = file_.string()};
}

HookInstaller::Result<std::string> HookInstaller::helper() const
{
    const auto path = helperPathOverride ? helperPathOverride : with_.resources.named(helperName);
    if (!path) return std::unexpected(HookInstallerError{Kind::helperMissing});
    // A line break cannot stand in a shell command or in a line of TOML.
    if (path->native().find_first_of("\r\n") != std::string::npos)
        return std::unexpected(HookInstallerError{Kind::helperMissing, texts::helperPathHasLineBreak});
    return path->string();
}

HookInstaller::Result<HookInstaller::Content> HookInstaller::read() const
{
    auto bytes = with_.files.read(file_);
    if (bytes) return Content(std::move(*bytes));
    if (bytes.error().missing) return Content();
    return ioError({texts::couldNotRead, {file_.string(), bytes.error().description}});
}

std::expected<void, ExchangeError> HookInstaller::write(const Content& before, const std::string& after)
{
    if (const auto made = with_.files.createFolders(file_.parent_path()); !made)
        return std::unexpected(ExchangeError{.changed = false, .description = made.error().description});
    return with_.files.exchange(file_, before, after);
}

HookInstaller::Result<std::optional<std::string>> HookInstaller::backUp(const Content& content)
{
    if (!content) return std::nullopt;
    std::string time = iso8601(with_.clock.now());
    std::ranges::replace(time, ':', '-');
    const std::filesystem::path backup = file_.parent_path() / (backupPrefix(file_) + time);
    if (const auto copied = with_.files.writeCopy(backup, *content, file_); !copied)
        return ioError({texts::couldNotBackUp, {copied.error().description}});
    return backup.string();
}

HookInstaller::Result<std::vector<HookChange>> HookInstaller::changes(const Content& before,
                                                                      const Content& after) const
{
    const auto findIn = [&](const Content& content) {
        return content ? find(*content, "") : Result<Findings>();
    };
    const auto old = findIn(before);
    if (!old) return std::unexpected(old.error());
    const auto fresh = findIn(after);
    if (!fresh) return std::unexpected(fresh.error());

    std::vector<HookChange> changes;
    const auto addMissing = [&](const std::vector<std::string>& from, const std::vector<std::string>& in,
                                HookChange::Kind kind) {
        for (const std::string& entry : from)
            if (std::ranges::find(in, entry) == in.end()) changes.push_back({kind, entry});
    };
    addMissing(old->entries, fresh->entries, HookChange::Kind::removed);
    addMissing(fresh->entries, old->entries, HookChange::Kind::added);
    return changes;
}

ProviderInstallState HookInstaller::state() const
{
    return {.providerId = std::string(providerId())};
}

}
