// SPDX-License-Identifier: MIT
#include "hooks/hook_installer.h"

#include "base/date_time.h"
#include "hooks/helper_command.h"
#include "values/shared_names.h"
#include "values/temporary_location.h"
#include "values/texts.h"

#include <algorithm>
#include <utility>

namespace chimewell {

namespace {

using Kind = HookInstallerError::Kind;

/// How often a change is tried on a file that the agent keeps rewriting.
constexpr int maxAttempts = 5;

std::string backupPrefix(const std::filesystem::path& file)
{
    return file.filename().string() + ".chimewell-backup-";
}

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

Phrase HookInstallerError::description() const
{
    switch (kind) {
    case Kind::settingsUnparseable:
        return {texts::notJson, {detail}};
    case Kind::helperMissing:
        return detail == Phrase() ? Phrase(texts::helperMissing) : detail;
    case Kind::noBackup:
        return texts::noBackup;
    case Kind::ioError:
        break;
    }
    return detail;
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
    const auto backup = change(installing(*path));
    if (!backup) return std::unexpected(backup.error());
    ProviderInstallState installed = state();
    installed.installed = true;
    installed.installedAt = with_.clock.now();
    installed.settingsPath = file_.string();
    installed.backupPath = *backup;
    installed.hookVersion = hookVersion();
    return installed;
}

HookInstaller::Result<ProviderInstallState> HookInstaller::uninstall()
{
    if (const auto backup = change(uninstalling()); !backup) return std::unexpected(backup.error());
    return state();
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

HookInstaller::Result<std::vector<HookChange>> HookInstaller::changesByInstall() const
{
    const auto path = helper();
    if (!path) return std::unexpected(path.error());
    return changesBy(installing(*path));
}

HookInstaller::Result<std::vector<HookChange>> HookInstaller::changesByUninstall() const
{
    return changesBy(uninstalling());
}

HookInstaller::Error HookInstaller::ioError(Phrase message)
{
    return Error(HookInstallerError{Kind::ioError, std::move(message)});
}

HookInstaller::Error HookInstaller::unreadable(const Phrase& reason) const
{
    return ioError({texts::couldNotRead, {file_.string(), reason}});
}

HookInstaller::Error HookInstaller::unparseable() const
{
    return Error(HookInstallerError{Kind::settingsUnparseable, file_.string()});
}

HookInstaller::Edit HookInstaller::installing(const std::string& helper) const
{
    return [this, helper](const Content& before) { return withHooks(before, helper); };
}

HookInstaller::Edit HookInstaller::uninstalling() const
{
    return [this](const Content& before) { return before ? withoutHooks(*before) : Content(); };
}

HookLook HookInstaller::lookAtFile(const ProviderInstallState& record) const
{
    using Status = HookInstallStatus::Kind;
    const auto failed = [](const HookInstallerError& error) {
        return HookInstallStatus{.kind = Status::error, .message = error.description()};
    };
    if (!isAvailable()) return {.status = {.kind = Status::comingSoon}};
    const auto file = read();
    if (!file) return {.status = failed(file.error())};
    const Content& content = *file;
    HookLook look{.fingerprint = std::hash<Content>()(content)};
    if (!content) return look;

    const auto ourHelper = helper();
    const auto found = find(*content, ourHelper.value_or(""));
    if (!found) {
        look.status = failed(found.error());
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

bool HookInstaller::offersRestore() const
{
    const auto oldest = oldestBackup(with_.files, file_).value_or(std::nullopt);
    if (!oldest) return false;
    // A backup that cannot be read or parsed has no entries that we know; restoring it reports the reason.
    const auto content = with_.files.read(*oldest);
    const auto found = content ? find(*content, "") : Findings();
    return !found || found->entries.empty();
}

HookInstaller::Result<std::string> HookInstaller::helper() const
{
    const auto path = helperPathOverride ? helperPathOverride : with_.resources.named(helperName);
    if (!path) return Error(HookInstallerError{Kind::helperMissing});
    if (isTemporaryLocation(*path))
        return Error(HookInstallerError{Kind::helperMissing, texts::moveToApplications});
    // Neither a shell command nor a line of TOML can contain a line break.
    if (path->native().find_first_of("\r\n") != std::string::npos)
        return Error(HookInstallerError{Kind::helperMissing, texts::helperPathHasLineBreak});
    return path->string();
}

HookInstaller::Result<HookInstaller::Content> HookInstaller::read() const
{
    auto bytes = with_.files.read(file_);
    if (bytes) return Content(std::move(*bytes));
    if (bytes.error().missing) return Content();
    return unreadable(bytes.error().description);
}

HookInstaller::Result<std::optional<std::string>> HookInstaller::change(const Edit& edit)
{
    for (int attempt = 1;; ++attempt) {
        const auto before = read();
        if (!before) return Error(before.error());
        const auto after = edit(*before);
        if (!after) return Error(after.error());
        const Content& content = *after;
        if (!content) return std::nullopt;
        auto backup = backUp(*before);
        if (!backup) return backup;
        const auto written = write(*before, *content);
        if (written) return backup;
        if (!written.error().changed || attempt == maxAttempts)
            return ioError({texts::couldNotWrite, {file_.string(), written.error().description}});
    }
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

HookInstaller::Result<std::vector<HookChange>> HookInstaller::changesBy(const Edit& edit) const
{
    const auto before = read();
    if (!before) return Error(before.error());
    const auto after = edit(*before);
    if (!after) return Error(after.error());
    const Content& edited = *after;
    if (!edited) return std::vector<HookChange>();

    const Content& original = *before;
    const auto old = original ? find(*original, "") : Findings();
    if (!old) return Error(old.error());
    const auto fresh = find(*edited, "");
    if (!fresh) return Error(fresh.error());
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
