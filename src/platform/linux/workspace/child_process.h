// SPDX-License-Identifier: MIT
#pragma once

#include "ports/files.h"

#include <QObject>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace chimewell {

/// Starts a program that outlives us, with `activationToken` (or none) in its environment and none of our
/// streams. False when it cannot be started.
bool startDetached(const std::vector<std::string>& command, const std::filesystem::path& workingFolder,
                   const std::string& activationToken);

/// Asks for the kind of the file at `path` in a child process (stat), because the call that asks does not
/// return on a network mount whose server does not answer. `done` runs from the event loop. It does not run
/// when there is no file, when a second has passed, or once `context` is destroyed.
void findKindInChild(const std::filesystem::path& path, QObject* context, std::function<void(FileKind)> done);

}
