// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace chimewell::benchmarks {

/// What agents keep in their settings: hooks, permissions, environment, projects with long prompts. JSON, a
/// little longer than asked for.
std::string settingsText(std::size_t atLeast);

/// A URL of 600 bytes, as an agent's hook makes it.
std::string eventUrl(std::string_view type, std::size_t session);

}
