// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"
#include "values/app_settings.h"
#include "values/canonical_event.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace chimewell {

// How events are shown. Icons go by their names in macOS's set of symbols; ours for other systems have the
// same.

/// The events that the panel switches on and off; all others are in the settings alone.
inline constexpr std::array quickEvents = {CanonicalEvent::finished, CanonicalEvent::waitingInput};

/// Those that the user can set up, in the order of the settings: all but the one that only ends reminders.
inline constexpr std::array configurableEvents = {
    CanonicalEvent::finished,     CanonicalEvent::waitingInput, CanonicalEvent::subagentFinished,
    CanonicalEvent::error,        CanonicalEvent::toolUse,      CanonicalEvent::longRunningStart,
    CanonicalEvent::sessionStart,
};

std::string_view iconName(CanonicalEvent event);

/// What an icon's colour tells.
enum class Tone : std::uint8_t { neutral, secondary, accent, green, orange, red };

Tone iconTone(CanonicalEvent event);

/// One line about what the event means.
Text description(CanonicalEvent event);

/// Whether there is anything to hear in the event's preview.
bool canPreview(const EventSetting& setting);

}
