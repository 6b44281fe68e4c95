// SPDX-License-Identifier: MIT
#include "hooks/codex_hook_installer.h"

#include "base/utf8.h"
#include "hooks/command_line.h"
#include "hooks/toml_notify.h"
#include "values/provider.h"
#include "values/texts.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace chimewell {

namespace {

using Kind = HookInstallerError::Kind;

std::unexpected<HookInstallerError> refused(Text reason)
{
    return std::unexpected(HookInstallerError{Kind::ioError, reason});
}

std::unexpected<HookInstallerError> notUtf8(const std::filesystem::path& file)
{
    return std::unexpected(
        HookInstallerError{Kind::ioError, {texts::couldNotRead, {file.string(), texts::notUtf8}}});
}

/// The first notify setting of a configuration.
struct Notify {
    NotifyLines lines;
    std::vector<std::string> strings; ///< The program and its arguments.

    bool isOurs() const
    {
        return !strings.empty() && std::filesystem::path(strings.front()).filename() == helperName;
    }
    /// Whether another program is told of ours, to call it in its turn.
    bool isUsersChain() const { return !isOurs() && std::ranges::any_of(strings, namesOurHelper); }
};

std::optional<Notify> readNotify(std::string_view toml)
{
    const auto lines = findNotify(toml);
    if (!lines) return std::nullopt;
    return Notify{.lines = *lines, .strings = notifyStrings(lines->in(toml))};
}

}

CodexHookInstaller::CodexHookInstaller(Collaborators with)
    : HookInstaller(with, {.providerId = codexProvider,
                           .displayName = "Codex",
                           .settingsFile = ".codex/config.toml",
                           .isBeta = true,
                           .hookVersion = 1})
{
}

HookInstaller::Result<std::string> CodexHookInstaller::withHooks(const Content& content,
                                                                 const std::string& helper) const
{
    const std::string toml = content.value_or("");
    if (!isValidUtf8(toml)) return notUtf8(settingsFileURL());
    const auto notify = readNotify(toml);
    if (notify && notify->isUsersChain()) return refused(texts::notifyIsChain);
    const bool isTaken = notify ? !notify->isOurs() : definesNotifyOtherwise(toml);
    if (isTaken) return refused(texts::notifyIsTaken);
    if (!isValidUtf8(helper)) return refused(texts::couldNotEncodeToml);
    const auto replaced = notify ? std::optional(notify->lines) : std::nullopt;
    return withNotifyLine(toml, replaced, "notify = [" + tomlString(helper) + ", \"codex-notify\"]");
}

HookInstaller::Result<HookInstaller::Content>
CodexHookInstaller::withoutHooks(const std::string& content) const
{
    if (!isValidUtf8(content)) return notUtf8(settingsFileURL());
    const auto notify = readNotify(content);
    if (notify && notify->isUsersChain()) return refused(texts::notifyIsChain);
    if (!notify || !notify->isOurs()) return Content();
    return Content(withoutNotify(content, notify->lines));
}

HookInstaller::Result<HookInstaller::Findings> CodexHookInstaller::find(const std::string& content,
                                                                        const std::string& helper) const
{
    if (!isValidUtf8(content)) return notUtf8(settingsFileURL());
    const auto notify = readNotify(content);
    if (!notify || !notify->isOurs()) return Findings{.isUsersChain = notify && notify->isUsersChain()};
    std::string lines(notify->lines.in(content));
    while (lines.ends_with('\n') || lines.ends_with('\r'))
        lines.pop_back();
    return Findings{.entries = {lines}, .callOtherHelper = notify->strings.front() != helper};
}

}
