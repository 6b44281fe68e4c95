// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace chimewell::benchmarks {

/// What agents keep in their settings: hooks, permissions, environment, projects with long prompts. JSON, a
/// little longer than asked for.
std::string settingsText(std::size_t atLeast);

}
