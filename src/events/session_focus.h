// SPDX-License-Identifier: MIT
#pragma once

#include "ports/workspace.h"
#include "values/terminal_application.h"

#include <optional>
#include <string>

namespace chimewell {

/// Brings an agent's terminal to the front, or opens its working folder if the terminal isn't known. Failures
/// are not reported: the user could do nothing about them.
class SessionFocus {
public:
    explicit SessionFocus(Workspace& workspace) : workspace_(workspace) {}

    void focusSession(const std::optional<std::string>& term, const std::optional<std::string>& cwd);
    /// True if a window was activated or the system was asked to activate one.
    bool activateApp(const TerminalApplication& application);

private:
    void showFolder(const std::string& cwd);

    Workspace& workspace_;
};

}
