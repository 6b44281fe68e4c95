// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace chimewell {

/// The parts of the settings, in the order in which they are offered.
enum class Pane : std::uint8_t { events, providers, recent, general };

inline constexpr std::array allPanes = {Pane::events, Pane::providers, Pane::recent, Pane::general};

std::string_view rawName(Pane pane);
Text title(Pane pane);
std::string_view iconName(Pane pane);

}
