// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace chimewell {

/// Identifiers of the agents, on the wire and in the settings.
inline constexpr std::string_view claudeProvider = "claude";
inline constexpr std::string_view codexProvider = "codex";
inline constexpr std::string_view cursorProvider = "cursor";

inline constexpr std::array knownProviders = {claudeProvider, codexProvider, cursorProvider};

constexpr bool isKnownProvider(std::string_view identifier)
{
    return std::ranges::find(knownProviders, identifier) != knownProviders.end();
}

}
