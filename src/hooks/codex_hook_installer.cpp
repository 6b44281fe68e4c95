// SPDX-License-Identifier: MIT
#include "hooks/codex_hook_installer.h"

#include "base/utf8.h"
#include "hooks/command_line.h"
#include "hooks/toml_notify.h"
#include "values/provider.h"
#include "values/texts.h"

namespace chimewell {

namespace {

using Kind = HookInstallerError::Kind;

std::unexpected<HookInstallerError> alreadyConfigured()
{
    return std::unexpected(HookInstallerError{Kind::ioError, texts::notifyIsTaken});
}

std::unexpected<HookInstallerError> notUtf8(const std::filesystem::path& file)
{
    return std::unexpected(
        HookInstallerError{Kind::ioError, {texts::couldNotRead, {file.string(), texts::notUtf8}}});
}

/// Our notify lines, if the first notify setting is ours.
std::optional<NotifyLines> findOurs(std::string_view toml)
{
    const auto found = findNotify(toml);
    return found && namesOurHelper(found->in(toml)) ? found : std::nullopt;
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
    const auto ours = findOurs(toml);
    if (!ours && (findNotify(toml) || definesNotifyOtherwise(toml))) return alreadyConfigured();
    if (!isValidUtf8(helper))
        return std::unexpected(HookInstallerError{Kind::ioError, texts::couldNotEncodeToml});
    return withNotifyLine(toml, ours, "notify = [" + tomlString(helper) + ", \"codex-notify\"]");
}

HookInstaller::Result<HookInstaller::Content>
CodexHookInstaller::withoutHooks(const std::string& content) const
{
    if (!isValidUtf8(content)) return notUtf8(settingsFileURL());
    const auto ours = findOurs(content);
    if (!ours) return Content();
    return Content(withoutNotify(content, *ours));
}

HookInstaller::Result<std::vector<std::string>> CodexHookInstaller::entries(const std::string& content) const
{
    if (!isValidUtf8(content)) return notUtf8(settingsFileURL());
    const auto ours = findOurs(content);
    if (!ours) return std::vector<std::string>();
    std::string lines(ours->in(content));
    while (lines.ends_with('\n') || lines.ends_with('\r'))
        lines.pop_back();
    return std::vector{lines};
}

}
