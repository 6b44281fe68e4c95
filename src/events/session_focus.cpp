// SPDX-License-Identifier: MIT
#include "events/session_focus.h"

#include <filesystem>

namespace chimewell {

void SessionFocus::focusSession(const std::optional<std::string>& term, const std::optional<std::string>& cwd)
{
    const TerminalApplication* const terminal = term ? findTerminalApplication(*term) : nullptr;
    if (terminal && activateApp(*terminal)) return;
    if (cwd) showFolder(*cwd);
}

bool SessionFocus::activateApp(const TerminalApplication& application)
{
    if (workspace_.isInstalled(application)) {
        workspace_.openActivating(application);
        return true;
    }
    return workspace_.activateRunning(application);
}

void SessionFocus::showFolder(const std::string& cwd)
{
    const std::filesystem::path path(cwd);
    if (!path.is_absolute() || cwd.contains('\0')) return;
    workspace_.findKind(path, [this, path](FileKind kind) {
        // A file is only revealed: opening it could run it.
        if (kind != FileKind::folder || !workspace_.openFolder(path)) workspace_.reveal(path);
    });
}

}
