// SPDX-License-Identifier: MIT
#pragma once

#include "helper/command_line.h"
#include "helper/environment.h"
#include "helper/payload.h"

#include <chrono>
#include <optional>
#include <string>

namespace chimewell {

/// The event URL for what the agent reported at `now`; nothing if it is no event to the user. What the
/// payload does not tell comes from the environment where the agent puts it there too, never from the working
/// folder.
std::optional<std::string> eventUrlFor(const CommandLine& command, const Payload& payload,
                                       const Environment& environment,
                                       std::chrono::system_clock::time_point now);

}
