// SPDX-License-Identifier: MIT
#pragma once

#include "values/canonical_event.h"

#include <optional>
#include <span>
#include <string_view>

namespace chimewell {

/// What the agent's configuration asks of us.
struct CommandLine {
    std::string_view provider;
    CanonicalEvent event = CanonicalEvent::finished;
    bool payloadIsArgument = false; ///< Otherwise it stands on standard input.
    std::string_view payload = {};  ///< If it is an argument; empty when that is missing.
};

/// `arguments`, the program's name left out, are `claude EVENT` or `cursor EVENT` with an event's raw name,
/// or `codex-notify JSON`. Anything else gives nothing; what follows is ignored.
std::optional<CommandLine> parseCommandLine(std::span<const char* const> arguments);

}
