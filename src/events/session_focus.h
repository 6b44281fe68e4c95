// SPDX-License-Identifier: MIT
#pragma once

#include "ports/workspace.h"
#include "values/terminal_application.h"

#include <optional>
#include <string>

namespace chimewell {

/// Brings the user back to an agent: its terminal, or failing that its working folder. Failures end
/// silently: there is nothing the user could do about them.
class SessionFocus {
public:
    explicit SessionFocus(Workspace& workspace) : workspace_(workspace) {}

    void focusSession(const std::optional<std::string>& term, const std::optional<std::string>& cwd);
    /// True when the application was brought forward, or asked to come.
    bool activateApp(const TerminalApplication& application);

private:
    void showFolder(const std::string& cwd);

    Workspace& workspace_;
};

}
