// SPDX-License-Identifier: MIT
#include "hooks/codex_hook_installer.h"

#include "base/utf8.h"
#include "hooks/helper_command.h"
#include "hooks/toml_notify.h"
#include "values/provider.h"
#include "values/shared_names.h"
#include "values/texts.h"

#include <algorithm>
#include <filesystem>
#include <string>

namespace chimewell {

namespace {

bool isOurs(const NotifySetting& notify)
{
    const auto& strings = notify.strings;
    return !strings.empty() && std::filesystem::path(strings.front()).filename() == helperName;
}

/// Whether another program is given our helper's path, to call it in turn.
bool isUsersChain(const NotifySetting& notify)
{
    return !isOurs(notify) && std::ranges::any_of(notify.strings, namesOurHelper);
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

HookInstaller::Result<HookInstaller::Content> CodexHookInstaller::withHooks(const Content& content,
                                                                            const std::string& helper) const
{
    const std::string toml = content.value_or("");
    if (!isValidUtf8(toml)) return unreadable(texts::notUtf8);
    const auto notify = findNotify(toml);
    if (notify && isUsersChain(*notify)) return ioError(texts::notifyIsChain);
    const bool isTaken = notify ? !isOurs(*notify) : definesNotifyOtherwise(toml);
    if (isTaken) return ioError(texts::notifyIsTaken);
    if (!isValidUtf8(helper)) return ioError(texts::couldNotEncodeToml);
    return withNotifyLine(toml, notify,
                          "notify = [" + tomlString(helper) + ", \"" + codexNotifyCommand + "\"]");
}

HookInstaller::Result<HookInstaller::Content>
CodexHookInstaller::withoutHooks(const std::string& content) const
{
    if (!isValidUtf8(content)) return unreadable(texts::notUtf8);
    const auto notify = findNotify(content);
    if (notify && isUsersChain(*notify)) return ioError(texts::notifyIsChain);
    if (!notify || !isOurs(*notify)) return Content();
    return withoutNotify(content, *notify);
}

HookInstaller::Result<HookInstaller::Findings> CodexHookInstaller::find(const std::string& content,
                                                                        const std::string& helper) const
{
    if (!isValidUtf8(content)) return unreadable(texts::notUtf8);
    const auto notify = findNotify(content);
    if (!notify || !isOurs(*notify)) return Findings{.isUsersChain = notify && isUsersChain(*notify)};
    std::string lines = content.substr(notify->begin, notify->size);
    while (lines.ends_with('\n') || lines.ends_with('\r'))
        lines.pop_back();
    return Findings{.entries = {lines}, .callOtherHelper = notify->strings.front() != helper};
}

}
